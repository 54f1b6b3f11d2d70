// no_exceptions: a program that is built with -fno-exceptions and -fno-rtti.
#include <iostream>

#include "norq/tools/try_parse.h"

int main(int argc, char** argv) {
  norq::OptionParser options(norq::BOOL_STYLE_NO_PREFIX, false);
  options.add_option("config", norq::OPT_STR, "Configuration file.");
  options.add_option("name", norq::OPT_STR, "Whom to greet.");
  std::vector<std::string> rest;
  std::string message;
  std::string config;
  if (!norq::try_parse_args(options, argc, argv, rest, 0, &message) ||
      (options.get_str_option("config", &config) &&
       !norq::try_parse_config_file(options, config, 1, &message))) {
    std::cerr << message << '\n';
    return 2;
  }
  std::string name = "world";
  options.get_str_option("name", &name);
  std::cout << "Hello, " << name << "!\n";
}
