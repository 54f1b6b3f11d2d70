// environment: options from the command line and from variables such as SERVE_PORT.
#include "norq/tools/environment.h"

#include <iostream>

#include "norq/options/option_parser.h"

int main(int argc, char** argv) {
  norq::OptionParser options(norq::BOOL_STYLE_NO_PREFIX, false);
  options.add_option("host", norq::OPT_STR, "Where to listen.");
  options.add_option("port", norq::OPT_UINT, "The port to listen on.");
  try {
    std::vector<std::string> rest;
    options.parse_args(argc, argv, rest, 0);
    norq::parse_environment(options, "SERVE_", 1);  // the command line takes precedence
  } catch (const norq::Exception& error) {
    std::cerr << error.what() << '\n';
    return 2;
  }
  std::string host = "localhost";
  constexpr int default_port = 8080;
  int port = default_port;
  options.get_str_option("host", &host);
  options.get_int_option("port", &port);
  std::cout << "serving on " << host << ", port " << port << '\n';
}
