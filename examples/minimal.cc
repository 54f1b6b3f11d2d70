// minimal: the smallest useful program: it registers an option, parses and reads.
#include <iostream>

#include "norq/options/option_parser.h"

int main(int argc, char** argv) {
  norq::OptionParser options(norq::BOOL_STYLE_NO_PREFIX, false);
  options.add_option("name", norq::OPT_STR, "Whom to greet.");
  try {
    std::vector<std::string> rest;
    options.parse_args(argc, argv, rest, 0);
  } catch (const norq::Exception& error) {
    std::cerr << error.what() << '\n';
    return 2;
  }
  std::string name = "world";  // an option that is not set leaves its variable unchanged
  options.get_str_option("name", &name);
  std::cout << "Hello, " << name << "!\n";
}
