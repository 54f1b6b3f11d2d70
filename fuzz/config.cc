// The bytes of a configuration file.

#include "fuzz.h"

namespace norq {

static std::string strip(const std::string& text) {
  const char* const spaces = " \t\n\v\f\r";
  const std::size_t first = text.find_first_not_of(spaces);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(spaces) - first + 1);
}

// Applies a statement. Returns what stands behind the line number of its refusal, or "".
static std::string take(std::vector<SlowOption>& options, const std::string& statement) {
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

void check(const std::string& input) {
  std::vector<SlowOption> options = {{"count", "", OPT_INT},  {"dump", "", OPT_FLAG},
                                     {"mode", "", OPT_ENUM},  {"out", "", OPT_STR},
                                     {"real", "", OPT_FLOAT}, {"verbose", "", OPT_BOOL}};
  Session session;
  session.run("sample 0");
  session.run("add real 3");
  std::istringstream lines(input);
  std::string line, statement, separator, expected;
  for (int line_count = 1; expected.empty() && std::getline(lines, line); ++line_count) {
    line = strip(line);
    const bool counts = !line.empty() && line[0] != '#';
    const bool continued = counts && line.back() == '\\';
    if (continued) line = strip("x" + line.substr(0, line.size() - 1)).substr(1);
    if (counts) statement += separator + line;
    if (counts) separator = " ";
    // At the end of the file what there is counts, unless it is nothing.
    const bool complete = (counts && !continued) || lines.peek() == EOF;
    if (!complete || statement.empty()) continue;
    expected = take(options, statement);
    if (!expected.empty()) expected = "invalid line " + std::to_string(line_count) + expected;
    statement = separator = "";
  }
  for (const SlowOption& o : options)
    expected += o.state == "not set" ? "" : o.key + " " + o.state + "; ";
  const std::string outcome = parse_file(session.parser, input, 0);
  require(outcome == expected, outcome + " instead of " + expected);
}

}  // namespace norq
