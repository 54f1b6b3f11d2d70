// A host that is built without exceptions and run-time type information.

#include <cstdio>

#include "norq/tools/try_parse.h"

int main() {
  norq::OptionParser options(norq::BOOL_STYLE_NO_PREFIX, false);
  options.add_option("count", norq::OPT_INT, "");
  const char* const good[] = {"program", "-count=1", "file"};
  const char* const bad[] = {"program", "-count=2", "-x"};
  std::vector<std::string> rest;
  std::string message = "untouched";
  const bool accepted = norq::try_parse_args(options, 3, good, rest, 0, &message) &&
                        message == "untouched" && rest.size() == 1;
  const bool refused = !norq::try_parse_args(options, 3, bad, rest, 0, nullptr) &&
                       !norq::try_parse_args(options, 3, bad, rest, 0, &message) &&
                       message == "unknown option: x, value: , command-line: -x";
  int count = 0;
  const bool applied = options.get_int_option("count", &count) && count == 2;
  const bool unopened = !norq::try_parse_config_file(options, "/missing", 0, &message) &&
                        message == "unable to open config file: /missing";
  std::printf("%d %d %d %d\n", accepted, refused, applied, unopened);
  return accepted && refused && applied && unopened ? 0 : 1;
}
