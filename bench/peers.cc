// The steps of the work, implemented with each library.

#include <getopt.h>
#include <ini.h>
#include <norq/options/option_parser.h>
#include <popt.h>
#include <tclap/CmdLine.h>

#include <CLI/CLI.hpp>
#include <args.hxx>
#include <boost/program_options.hpp>
#include <cstdlib>
#include <cstring>
#include <cxxopts.hpp>
#include <memory>
#include <tuple>
#include <unordered_map>

#include "workload.h"

namespace bench {
namespace {

double use_norq(const Run& run) {
  norq::OptionParser parser(norq::BOOL_STYLE_NO_PREFIX, false);
  run.add_options([&](const Option& option, auto) {
    constexpr norq::OptionType types[] = {norq::OPT_INT, norq::OPT_STR, norq::OPT_BOOL,
                                          norq::OPT_FLOAT};
    parser.add_option(option.name, types[option.empty.index()], option.help);
  });
  run.measure_listing([&](std::ostream& out) {
    parser.print_help(out, "Options:", norq::PRINT_ORDER_NAME, norq::PRINT_STYLE_ALIGNED);
  });
  if (!run.measure_file([&](const char* path) { parser.parse_config_file(path, 0); })) {
    std::vector<std::string> rest;
    parser.parse_args(run.work.argc, run.work.single_argv.data(), rest, 0);
  }
  return run.read_back([&](const Option& option, auto value) {
    using T = decltype(value);
    if constexpr (std::is_same_v<T, int>) parser.get_int_option(option.name, &value);
    if constexpr (std::is_same_v<T, std::string>) parser.get_str_option(option.name, &value);
    if constexpr (std::is_same_v<T, bool>) parser.get_bool_option(option.name, &value);
    if constexpr (std::is_same_v<T, float>) parser.get_float_option(option.name, &value);
    return value;
  });
}

template <class T>
using ArgsFlag = std::conditional_t<std::is_same_v<T, bool>, args::Flag, args::ValueFlag<T>>;

double use_args(const Run& run) {
  args::ArgumentParser parser("host");
  std::vector<std::unique_ptr<args::FlagBase>> flags;
  run.add_options([&](const Option& option, auto type) {
    flags.push_back(std::make_unique<ArgsFlag<decltype(type)>>(parser, "value", option.help,
                                                               args::Matcher{option.name}));
  });
  run.measure_listing([&](std::ostream& out) { parser.Help(out); });
  parser.ParseCLI(run.work.argc, run.work.argv.data());
  return run.read_back([&](const Option& option, auto type) -> decltype(auto) {
    return args::get(static_cast<ArgsFlag<decltype(type)>&>(*flags[option.index]));
  });
}

double use_boost(const Run& run) {
  namespace po = boost::program_options;
  po::options_description description;
  auto adder = description.add_options();
  run.add_options([&](const Option& option, auto type) {
    if constexpr (std::is_same_v<decltype(type), bool>) {
      adder(option.name.c_str(), po::bool_switch(), option.help.c_str());
    } else {
      adder(option.name.c_str(), po::value<decltype(type)>(), option.help.c_str());
    }
  });
  run.measure_listing([&](std::ostream& out) { out << description; });
  po::variables_map values;
  po::store(po::parse_command_line(run.work.argc, run.work.argv.data(), description), values);
  po::notify(values);
  return run.read_back([&](const Option& option, auto type) -> auto& {
    return values[option.name].as<decltype(type)>();
  });
}

double use_cli11(const Run& run) {
  std::vector<Value> variables(run.work.options.size());
  CLI::App app("host");
  run.add_options([&](const Option& option, auto type) {
    auto& variable = variables[option.index].emplace<decltype(type)>();
    if constexpr (std::is_same_v<decltype(type), bool>) {
      app.add_flag("--" + option.name, variable, option.help);
    } else {
      app.add_option("--" + option.name, variable, option.help);
    }
  });
  run.measure_listing([&](std::ostream& out) { out << app.help(); });
  app.parse(run.work.argc, run.work.argv.data());
  return run.read_back([&](const Option& option, auto type) -> auto& {
    return std::get<decltype(type)>(variables[option.index]);
  });
}

double use_cxxopts(const Run& run) {
  cxxopts::Options options("host");
  cxxopts::OptionAdder adder = options.add_options();
  run.add_options([&](const Option& option, auto type) {
    adder(option.name, option.help, cxxopts::value<decltype(type)>());
  });
  run.measure_listing([&](std::ostream& out) { out << options.help(); });
  const auto result = options.parse(run.work.argc, run.work.argv.data());
  return run.read_back([&](const Option& option, auto type) -> auto& {
    return result[option.name].as<decltype(type)>();
  });
}

double use_tclap(const Run& run) {
  TCLAP::CmdLine command("host", '=', "1", false);
  std::vector<std::unique_ptr<TCLAP::Arg>> flags;
  run.add_options([&](const Option& option, auto empty) {
    std::unique_ptr<TCLAP::Arg>& flag = flags.emplace_back();
    if constexpr (std::is_same_v<decltype(empty), bool>) {
      flag = std::make_unique<TCLAP::SwitchArg>("", option.name, option.help, command, empty);
    } else {
      flag = std::make_unique<TCLAP::ValueArg<decltype(empty)>>("", option.name, option.help, false,
                                                                empty, "value", command);
    }
  });
  command.parse(run.work.argc, run.work.argv.data());
  return run.read_back([&](const Option& option, auto type) -> decltype(auto) {
    using Flag = std::conditional_t<std::is_same_v<decltype(type), bool>, TCLAP::SwitchArg,
                                    TCLAP::ValueArg<decltype(type)>>;
    return static_cast<Flag&>(*flags[option.index]).getValue();
  });
}

// The variable into which popt stores a value.
template <class T>
using PoptVariable = std::conditional_t<std::is_same_v<T, std::string>, char*,
                                        std::conditional_t<std::is_same_v<T, bool>, int, T>>;

double use_popt(const Run& run) {
  std::vector<std::tuple<int, char*, float>> variables(run.work.options.size());
  std::vector<poptOption> table;
  run.add_options([&](const Option& option, auto type) {
    constexpr unsigned types[] = {POPT_ARG_INT, POPT_ARG_STRING, POPT_ARG_NONE, POPT_ARG_FLOAT};
    auto& variable = std::get<PoptVariable<decltype(type)>>(variables[option.index]);
    table.push_back({option.name.c_str(), 0, types[option.empty.index()], &variable, 0,
                     option.help.c_str(), nullptr});
  });
  table.push_back(POPT_TABLEEND);
  const char** const argv = const_cast<const char**>(run.work.argv.data());
  poptContext context = poptGetContext(nullptr, run.work.argc, argv, table.data(), 0);
  while (poptGetNextOpt(context) > 0) {
  }
  const double sum = run.read_back([&](const Option& option, auto type) -> decltype(type) {
    return std::get<PoptVariable<decltype(type)>>(variables[option.index]);
  });
  poptFreeContext(context);
  for (const auto& variable : variables) std::free(std::get<char*>(variable));
  return sum;
}

// Converts values for libraries that do not convert them.
template <class T>
void convert(const char* text, T& out) {
  if constexpr (std::is_same_v<T, int>) out = static_cast<int>(std::strtol(text, nullptr, 10));
  if constexpr (std::is_same_v<T, std::string>) out = text;
  if constexpr (std::is_same_v<T, bool>) out = std::strcmp(text, "true") == 0;
  if constexpr (std::is_same_v<T, float>) out = std::strtof(text, nullptr);
}

double use_getopt_long(const Run& run) {
  std::vector<option> table;
  run.add_options([&](const Option& option, auto type) {
    const int argument = std::is_same_v<decltype(type), bool> ? no_argument : required_argument;
    table.push_back({option.name.c_str(), argument, nullptr, 0});
  });
  table.push_back({});
  std::vector<const char*> texts(table.size(), "");
  char* const* argv = const_cast<char* const*>(run.work.argv.data());  // no operands to move
  optind = 0;
  for (int i = 0; getopt_long(run.work.argc, argv, "", table.data(), &i) == 0;) {
    texts[static_cast<std::size_t>(i)] = optarg == nullptr ? "true" : optarg;
  }
  return run.read_back([&](const Option& option, auto value) {
    convert(texts[option.index], value);
    return value;
  });
}

// By name: name, help text and value.
using Records = std::unordered_map<std::string, std::tuple<std::string, std::string, Value>>;

bool set(Records& records, const std::string& name, const char* text) {
  const auto found = records.find(name);
  if (found == records.end()) return false;
  std::visit([text](auto& value) { convert(text, value); }, std::get<Value>(found->second));
  return true;
}

int set_from_file(void* records, const char*, const char* name, const char* text) {
  return set(*static_cast<Records*>(records), name, text);
}

// No library: the program has a hash table of records.
double use_table(const Run& run) {
  Records records;
  run.add_options([&](const Option& option, auto empty) {
    records.try_emplace(option.name, option.name, option.help, empty);
  });
  if (!run.measure_file([&](const char* path) { ini_parse(path, set_from_file, &records); })) {
    std::string name;
    for (int i = 1; i < run.work.argc; ++i) {
      const char* const argument = run.work.single_argv[i] + 1;
      const std::size_t length = std::strcspn(argument, "=");
      name.assign(argument, length);
      set(records, name, argument[length] == '=' ? argument + length + 1 : "true");
    }
  }
  return run.read_back([&](const Option& option, auto type) -> auto& {
    return std::get<decltype(type)>(std::get<Value>(records.at(option.name)));
  });
}

}  // namespace

const std::vector<Peer> peers = {
    {"norq", use_norq, {"cycle", "growth", "help", "config"}},
    {"args", use_args, {"cycle", "help"}},
    {"Boost.Program_options", use_boost, {"cycle", "help"}},
    {"CLI11", use_cli11, {"cycle", "help"}},
    {"cxxopts", use_cxxopts, {"cycle", "help"}},
    {"getopt_long", use_getopt_long, {"cycle"}},
    {"popt", use_popt, {"cycle"}},
    {"TCLAP", use_tclap, {"cycle"}},
    {"std", use_table, {"growth"}},
    {"inih", use_table, {"config"}},
};

}  // namespace bench
