#include <norq/options/option_parser.h>

#include <memory>
#include <sstream>

#include "config.h"

namespace bench {
namespace {

void register_options(norq::OptionParser& parser, const Workload& work) {
  for (const OptionSpec& option : work.options) {
    norq::OptionType type = norq::OPT_BOOL;
    if (option.kind == Kind::integer) type = norq::OPT_INT;
    if (option.kind == Kind::text) type = norq::OPT_STR;
    if (option.kind == Kind::real) type = norq::OPT_FLOAT;
    parser.add_option(option.name, type, option.help);
  }
}

void read(const norq::OptionParser& parser, const std::string& name, int* out) {
  parser.get_int_option(name, out);
}
void read(const norq::OptionParser& parser, const std::string& name, std::string* out) {
  parser.get_str_option(name, out);
}
void read(const norq::OptionParser& parser, const std::string& name, bool* out) {
  parser.get_bool_option(name, out);
}
void read(const norq::OptionParser& parser, const std::string& name, float* out) {
  parser.get_float_option(name, out);
}

double cycle(const Workload& work) {
  norq::OptionParser parser(norq::BOOL_STYLE_NO_PREFIX, false);
  register_options(parser, work);
  std::vector<std::string> rest;
  const auto& argv = work.argv(1);
  parser.parse_args(static_cast<int>(argv.size()) - 1, argv.data(), rest, 0);
  return read_back(work, [&](const Setting& setting, auto value) {
    read(parser, work.options[setting.option].name, &value);
    return value;
  });
}

std::function<std::size_t()> make_lister(const Workload& work) {
  auto parser = std::make_shared<norq::OptionParser>(norq::BOOL_STYLE_NO_PREFIX, false);
  register_options(*parser, work);
  return [parser] {
    std::ostringstream out;
    parser->print_help(out, "Options:", norq::PRINT_ORDER_NAME, norq::PRINT_STYLE_ALIGNED);
    return out.str().size();
  };
}

const RegisterPeer registered({"norq", cycle, make_lister});

std::function<bool(const std::string&)> make_config_reader(const Workload& work) {
  auto parser = std::make_shared<norq::OptionParser>(norq::BOOL_STYLE_NO_PREFIX, false);
  register_options(*parser, work);
  return [parser](const std::string& path) {
    parser->parse_config_file(path, 0);
    return true;
  };
}

const RegisterConfigReader registered_reader({"norq", make_config_reader});

}  // namespace
}  // namespace bench
