// A set-up and arguments, as lines: "STYLE" or "STYLE pass", if unknown options are passed on;
// options "KEY NAME TYPE" up to an empty line; arguments, of which those behind another empty line
// come with another level.

#include "fuzz.h"

namespace norq {

// Applies an argument. Returns the refusal's text, or "".
static std::string take(std::vector<SlowOption>& options, int style, bool pass_unknown,
                        const std::string& argument, int level, Strings* rest) {
  const bool plus = argument[0] == '+' && style == BOOL_STYLE_PLUS_MINUS;
  if (argument[0] != '-' && !plus) return rest->push_back(argument), "";
  const bool no = style == BOOL_STYLE_NO_PREFIX && argument.compare(1, 3, "no_") == 0;
  const std::size_t start = no ? 4 : 1, equals = std::min(argument.find('='), argument.size());
  const std::string name = argument.substr(start, equals - start);
  std::string value = equals < argument.size() ? argument.substr(equals + 1) : "";
  const auto option = std::find_if(options.begin(), options.end(),
                                   [&](const SlowOption& o) { return o.name == name; });
  const bool known = option != options.end();
  if (!known && pass_unknown) return rest->push_back(argument), "";
  const bool negated = no || (style == BOOL_STYLE_PLUS_MINUS && !plus);
  const bool is_bool = known && option->type == OPT_BOOL;
  const bool by_form = is_bool && style != BOOL_STYLE_VALUE;  // sign or prefix stand for the value
  const bool fits = known && (by_form ? value.empty() : !negated);
  if (fits && by_form) value = negated ? "false" : "true";
  for (char& byte : value)
    if (is_bool && !by_form && byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte + 32);
  if (fits && option->take(value, level)) return "";
  return std::string(known ? "bad option format" : "unknown option") + ": " + name +
         ", value: " + value + ", command-line: " + argument;
}

void check(const std::string& input) {
  std::istringstream lines(input);
  std::string line;
  std::getline(lines, line);
  Session session;
  session.run("new " + line);
  const int style = number(session.words[1]);
  const bool pass_unknown = !session.words[2].empty();
  const Parser& parser = session.parser;
  std::vector<SlowOption> options;  // in the table's order
  while (std::getline(lines, line) && !line.empty()) {
    if (options.size() > 20) continue;  // the table does not grow
    const bool added = session.run("add_named " + line) == "true\n";
    const SlowOption option = {session.words[1], session.words[2], number(session.words[3])};
    const auto bucket_of = [](const SlowOption& o) { return hsh::hash<std::string>()(o.key) % 31; };
    const auto not_before = [&](const SlowOption& o) { return bucket_of(o) >= bucket_of(option); };
    if (added) options.insert(std::find_if(options.begin(), options.end(), not_before), option);
    parser->add_enum_value(option.key, "fast", 7, "");
  }

  for (int level = 0; lines; level = (level + 2) % 3) {
    Strings arguments = {"host"}, rest, slow_rest;
    std::string refusal;
    while (std::getline(lines, line) && !line.empty()) {
      arguments.emplace_back(line.c_str());  // up to a NUL byte
      if (refusal.empty())
        refusal = take(options, style, pass_unknown, arguments.back(), level, &slow_rest);
    }
    require(refusal == refusal_of([&] { parse_args(parser, arguments, &rest, level); }) &&
                rest == slow_rest,
            refusal);
    for (const SlowOption& option : options)
      require(read(parser, option.key) == option.state, option.key + " " + option.state);
  }
}

}  // namespace norq
