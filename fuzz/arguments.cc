// A set-up and arguments, as lines: the boolean style and, behind it, "p" if unknown options are
// passed on; options "KEY NAME TYPE" (a digit is the type's number) up to an empty line; arguments,
// of which those behind another empty line come with another level.

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
  if (name.find('=') != std::string::npos) {
    value = name.substr(name.find('=') + 1);
    name.resize(name.find('='));
  }
  const auto option = std::find_if(options.begin(), options.end(),
                                   [&](const SlowOption& o) { return o.name == name; });
  const bool known = option != options.end();
  if (!known && pass_unknown) return rest->push_back(argument), "";
  const bool negated = no || (style == BOOL_STYLE_PLUS_MINUS && !plus);
  bool fits = known && (option->type == OPT_BOOL || !negated);
  if (known && option->type == OPT_BOOL && style == BOOL_STYLE_VALUE) {
    for (char& byte : value)
      byte = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
  } else if (known && option->type == OPT_BOOL) {
    fits = value.empty();
    if (fits) value = negated ? "false" : "true";
  }
  if (fits && option->take(value, level)) return "";
  return std::string(known ? "bad option format" : "unknown option") + ": " + name +
         ", value: " + value + ", command-line: " + argument;
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
    const SlowOption option = {lines[i].substr(0, first),
                               lines[i].substr(first + 1, last - first - 1),
                               (lines[i].back() + 1) % 7};
    if (parser->add_option(option.key, option.name, OptionType(option.type), ""))
      options.insert(options.begin(), option);
    parser->add_enum_value(option.key, "fast", 7, "");
  }
  const auto bucket_of = [](const SlowOption& o) { return hsh::hash<std::string>()(o.key) % 31; };
  std::stable_sort(options.begin(), options.end(),
                   [&](const auto& a, const auto& b) { return bucket_of(a) < bucket_of(b); });

  for (std::size_t part = 0; ++i < lines.size(); ++part) {
    const int level = static_cast<int>(part * 5 % 3);
    std::vector<const char*> argv = {"host"};
    Strings rest, slow_rest;
    std::string refusal;
    for (; i < lines.size() && !lines[i].empty(); ++i) {
      argv.push_back(lines[i].c_str());
      if (refusal.empty())
        refusal = take(options, style, pass_unknown, lines[i], level, &slow_rest);
    }
    const auto argc = static_cast<int>(argv.size());
    require(refusal == refusal_of([&] { parser->parse_args(argc, argv.data(), rest, level); }) &&
                rest == slow_rest,
            refusal);
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
