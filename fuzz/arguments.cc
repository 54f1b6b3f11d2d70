// A set-up and arguments, as lines: the boolean style and, behind it, "p" if unknown options are
// passed on; options "KEY NAME TYPE" up to an empty line; arguments, of which those behind another
// empty line come with another level.

#include <algorithm>

#include "../tests/session.h"
#include "fuzz.h"
#include "slow_option.h"

namespace norq {

// Applies an argument. Returns the refusal's text, or "".
std::string take(std::vector<SlowOption>& options, int style, bool pass_unknown,
                 const std::string& argument, int level, Strings* rest) {
  const bool plus = argument[0] == '+' && style == BOOL_STYLE_PLUS_MINUS;
  if (argument[0] != '-' && !plus) return rest->push_back(argument), "";
  const bool no = style == BOOL_STYLE_NO_PREFIX && argument.compare(1, 3, "no_") == 0;
  std::string name = argument.substr(no ? 4 : 1), value;
  const std::size_t equals = name.find('=');
  if (equals != std::string::npos) {
    value = name.substr(equals + 1);
    name.resize(equals);
  }
  const auto refusal = [&](const std::string& message) {
    return message + ": " + name + ", value: " + value + ", command-line: " + argument;
  };
  const auto option = std::find_if(options.begin(), options.end(),
                                   [&](const SlowOption& o) { return o.name == name; });
  if (option == options.end())
    return pass_unknown ? (rest->push_back(argument), "") : refusal("unknown option");
  const bool negated = no || (style == BOOL_STYLE_PLUS_MINUS && !plus);
  bool fits = option->type == OPT_BOOL || !negated;
  if (option->type == OPT_BOOL && style == BOOL_STYLE_VALUE) {
    for (char& byte : value)
      byte = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
  } else if (option->type == OPT_BOOL) {
    fits = value.empty();
    if (fits) value = negated ? "false" : "true";
  }
  return fits && option->take(value, level) ? "" : refusal("bad option format");
}

void check(const Strings& lines) {
  if (lines.empty() || lines[0].empty()) return;
  const int style = lines[0][0] % 3;
  const bool pass_unknown = lines[0].back() == 'p';
  const Parser parser(style, pass_unknown);
  std::vector<SlowOption> options;
  std::size_t i = 1;
  for (; i < lines.size() && !lines[i].empty(); ++i) {
    const std::size_t first = lines[i].find(' '), last = lines[i].rfind(' ');
    if (first >= last || options.size() > 20) continue;  // the table does not grow
    const std::string key = lines[i].substr(0, first);
    const std::string name = lines[i].substr(first + 1, last - first - 1);
    const int type = lines[i].back() % 7;
    const bool added = parser->add_option(key, name, OptionType(type), "");
    parser->add_enum_value(key, "fast", 7, "");
    if (added) options.insert(options.begin(), {key, name, type});
  }
  std::stable_sort(options.begin(), options.end(), [](const SlowOption& a, const SlowOption& b) {
    const hsh::hash<std::string> hash;
    return hash(a.key) % 31 < hash(b.key) % 31;
  });

  const int levels[] = {1, 0, 2, 1};
  for (std::size_t part = 0; ++i < lines.size(); ++part) {
    std::vector<const char*> argv = {"host"};
    Strings rest, slow_rest;
    std::string refusal;
    for (; i < lines.size() && !lines[i].empty(); ++i) {
      argv.push_back(lines[i].c_str());
      if (refusal.empty())
        refusal = take(options, style, pass_unknown, lines[i], levels[part % 4], &slow_rest);
    }
    require(refusal == refusal_of([&] {
              parser->parse_args(static_cast<int>(argv.size()), argv.data(), rest,
                                 levels[part % 4]);
            }),
            refusal);
    require(rest == slow_rest, "what remains");
    for (const SlowOption& option : options)
      require(read(parser, option.key) == option.state, option.key + " " + option.state);
  }
}

}  // namespace norq

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  norq::check(norq::lines_of(norq::text_of(
      data, size,
      {"\n",   "a",    "b",          "c",    "-",    "+",     "=",    "-no_", " 0\n",
       " 1\n", " 2\n", " 3\n",       " 4\n", " 5\n", " 6\n",  " ",    "true", "False",
       "fast", "\n\n", "2147483648", ".5",   "no_",  "\n-a=", "\n+b", "a b",  "\n-c"})));
  return 0;
}
