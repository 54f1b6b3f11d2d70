// two_parsers: a program that passes unknown options on to the parser of a library.
#include <algorithm>
#include <iostream>
#include <iterator>

#include "norq/options/option_parser.h"

// Starts a library that has options of its own. Returns the positional arguments.
static std::vector<std::string> start_engine(const std::vector<std::string>& arguments) {
  norq::OptionParser options(norq::BOOL_STYLE_VALUE, false);
  options.add_option("engine_threads", norq::OPT_UINT, "");
  std::vector<const char*> argv = {"engine"};  // in place of a program's name
  std::transform(arguments.begin(), arguments.end(), std::back_inserter(argv),
                 [](const std::string& argument) { return argument.c_str(); });
  std::vector<std::string> rest;
  options.parse_args(static_cast<int>(argv.size()), argv.data(), rest, 0);
  int threads = 1;
  options.get_int_option("engine_threads", &threads);
  std::cout << "engine with " << threads << " threads\n";
  return rest;
}

int main(int argc, char** argv) {
  norq::OptionParser options(norq::BOOL_STYLE_NO_PREFIX, true);  // unknown options are passed on
  options.add_option("quiet", norq::OPT_FLAG, "");
  std::vector<std::string> rest;
  try {
    options.parse_args(argc, argv, rest, 0);
    rest = start_engine(rest);
  } catch (const norq::Exception& error) {
    std::cerr << error.what() << '\n';
    return 2;
  }
  if (!options.get_flag_option("quiet")) {
    for (const std::string& argument : rest) std::cout << "file " << argument << '\n';
  }
}
