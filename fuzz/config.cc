// The bytes of a configuration file.

#include "../tests/session.h"
#include "fuzz.h"
#include "slow_option.h"

namespace norq {

std::string strip(const std::string& text) {
  const char* const spaces = " \t\n\v\f\r";
  const std::size_t first = text.find_first_not_of(spaces);
  return first == std::string::npos ? ""
                                    : text.substr(first, text.find_last_not_of(spaces) - first + 1);
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
  const Parser parser(0);
  add_sample_options(parser);
  parser->add_option("real", OPT_FLOAT, "");
  std::vector<SlowOption> options = {{"verbose", "", OPT_BOOL}, {"count", "", OPT_INT},
                                     {"out", "", OPT_STR},      {"dump", "", OPT_FLAG},
                                     {"mode", "", OPT_ENUM},    {"real", "", OPT_FLOAT}};
  Strings lines = lines_of(bytes);
  std::string statement, separator, refusal;
  for (std::size_t i = 0; i < lines.size() && refusal.empty(); ++i) {
    std::string line = strip(lines[i]);
    const bool skipped = line.empty() || line[0] == '#';
    const bool continued = !skipped && line.back() == '\\';
    if (continued) line = strip("x" + line.substr(0, line.size() - 1)).substr(1);
    if (!skipped) {
      statement += separator + line;
      separator = " ";
    }
    // At the end of the file what there is counts, unless it is nothing.
    const bool complete = (!skipped && !continued) || i + 1 == lines.size();
    if (!complete || statement.empty()) continue;
    refusal = take(options, statement);
    if (!refusal.empty()) refusal = "invalid line " + std::to_string(i + 1) + refusal;
    statement = separator = "";
  }
  const std::string outcome = parse_file(parser, bytes, 0);
  require(outcome == refusal + state_of(parser), outcome + " instead of " + refusal);
  for (const SlowOption& option : options)
    require(read(parser, option.key) == option.state, option.key + " " + option.state);
}

}  // namespace norq

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace std::string_view_literals;
  norq::check(norq::text_of(
      data, size, {"\n",  "verbose", "count", "out",      "dump", "mode",   "real", "=",
                   " = ", "\\\n",    "#",     "true\n",   "fast", "3\n",    ".5",   "2147483648",
                   "\\",  "\0"sv,    "\n#",   "\ncount=", "\r\n", " \\ \n", "\n\n", "\\\n\n"}));
  return 0;
}
