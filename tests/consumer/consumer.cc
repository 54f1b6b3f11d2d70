// A host with a hook of its own, which reads one option and is refused another.

#include <norq/options/option_parser.h>
#include <norq/version.h>

#include <iostream>

void norq::Exception::dump_msg_and_raise_assertion() {
  std::cout << "hook: " << what() << "\n";
}

int main() {
  norq::OptionParser parser(norq::BOOL_STYLE_NO_PREFIX, false);
  parser.add_option("count", norq::OPT_INT, "");
  const char* const argv[] = {"consumer", "-count=3", "-other"};
  std::vector<std::string> rest;
  try {
    parser.parse_args(3, argv, rest, 0);
  } catch (const norq::OptionParser::error& error) {
    int count = 0;
    parser.get_int_option("count", &count);
    std::cout << error.what() << "\n" << count << " " << NORQ_VERSION_MAJOR << "\n";
  }
}
