// The bytes of a configuration file.

#include "fuzz.h"
#include "slow_option.h"

namespace norq {

std::string strip(const std::string& text) {
  const char* const spaces = " \t\n\v\f\r";
  const std::size_t first = text.find_first_not_of(spaces);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(spaces) - first + 1);
}

// Applies a statement. Returns what stands behind the line number of its refusal, or "".
std::string take(std::vector<SlowOption>& options, const std::string& statement) {
  const std::size_t equals = statement.find('=');
  if (equals == std::string::npos) return "\n";
  const std::string key = strip(statement.substr(0, equals));
  const std::string value = strip(statement.substr(equals + 1));
  std::string message = "unknown option";
  for (SlowOption& option : options) {
    if (option.key == key) message = option.take(value, 0) ? "" : "bad value for option";
  }
  if (message.empty()) return "";
  message += ": " + key + ", value: " + value;
  return std::string(" (") + message.c_str() + ")\n";
}

void check(const std::string& bytes) {
  std::vector<SlowOption> options = {{"count", "", OPT_INT},  {"dump", "", OPT_FLAG},
                                     {"mode", "", OPT_ENUM},  {"out", "", OPT_STR},
                                     {"real", "", OPT_FLOAT}, {"verbose", "", OPT_BOOL}};
  const Parser parser(0);
  for (const SlowOption& o : options) parser->add_option(o.key, OptionType(o.type), "");
  parser->add_enum_value("mode", "fast", 7, "");
  const Strings lines = lines_of(bytes);
  std::string statement, separator, expected;
  for (std::size_t i = 0; i < lines.size() && expected.empty(); ++i) {
    std::string line = strip(lines[i]);
    const bool counts = !line.empty() && line[0] != '#';
    const bool continued = counts && line.back() == '\\';
    if (continued) line = strip("x" + line.substr(0, line.size() - 1)).substr(1);
    if (counts) statement += separator + line;
    if (counts) separator = " ";
    // At the end of the file what there is counts, unless it is nothing.
    const bool complete = (counts && !continued) || i + 1 == lines.size();
    if (!complete || statement.empty()) continue;
    expected = take(options, statement);
    if (!expected.empty()) expected = "invalid line " + std::to_string(i + 1) + expected;
    statement = separator = "";
  }
  for (const SlowOption& o : options)
    expected += o.state == "not set" ? "" : o.key + " " + o.state + "; ";
  const std::string outcome = parse_file(parser, bytes, 0);
  require(outcome == expected, outcome + " instead of " + expected);
}

}  // namespace norq

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  norq::check(norq::text_of(
      data, size, {"\n",   "verbose",  "count", "out",        "dump", "mode",
                   "real", "=",        " = ",   "\\\n",       "#",    "true\n",
                   "fast", "3\n",      ".5",    "2147483648", "\\",   std::string(1, '\0'),
                   "\n#",  "\ncount=", "\r\n",  " \\ \n",     "\n\n", "\\\n\n"}));
  return 0;
}
