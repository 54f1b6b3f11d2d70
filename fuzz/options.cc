// Sets random options by configuration files and arguments.

#include <climits>
#include <cstdio>
#include <fstream>
#include <map>
#include <regex>

#include "fuzz.h"

using namespace norq;

template <class Call>
static std::string error_of(Call call) try {
  call();
  return "";
} catch (const Exception& error) {
  return error.what();
}

static std::string state_of(OptionParser& parser, const std::string& key) {
  bool flag = false;
  int number = 0;
  float fraction = 0;
  std::string text = parser.get_flag_option(key) ? "" : "not set";
  if (parser.get_bool_option(key, &flag)) text = flag ? "true" : "false";
  if (parser.get_int_option(key, &number)) text = std::to_string(number);
  if (parser.get_float_option(key, &fraction)) text = std::to_string(fraction);
  parser.get_str_option(key, &text);
  return text + ", level " + std::to_string(parser.get_option(key)->level);
}

struct Settings : RandomParser {
  using RandomParser::RandomParser;

  // The model of a setting. Returns the error, or "".
  std::string take(const Option* option, const std::string& name, const std::string& text,
                   int level, const std::string& refusal, bool is_well_formed = true) {
    static const std::regex forms[] = {std::regex("true|false"), std::regex("\\d+"),
                                       std::regex("-?\\d+"),     std::regex("\\d+[.]?\\d*|[.]\\d+"),
                                       std::regex("[^]*"),       std::regex(""),
                                       std::regex("fast")};
    const std::string details = ": " + name + ", value: " + text;
    if (option == nullptr) return "unknown option" + details;
    if (!is_well_formed || !std::regex_match(text, forms[option->type])) return refusal + details;
    if (option->is_set && option->level < level) return "";
    const double number = std::atof(text.c_str());  // exact within the range of int
    const std::string integer = std::to_string(int(std::clamp<double>(number, INT_MIN, INT_MAX)));
    const std::string fraction = std::to_string(float(number));
    const std::string values[] = {text, integer, integer, fraction, text, text, "7"};
    states[option] = values[option->type] + ", level " + std::to_string(level);
    return "";
  }

  void set_by_file(Input& input, const std::string& key, const std::string& text, int level) {
    std::string file = input.some_of({"\n", "#=\\\n", " \t\r\n", "\v \n"}, 3);
    const std::regex space(" ");
    file += std::regex_replace(key + " \v= " + text, space, " \\\n#\\\n ");
    file += input.one_of({"\t\n", "\\\n \\\n"});
    std::ofstream("a.conf", std::ios::binary) << file;
    const std::string line = std::to_string(std::count(file.begin(), file.end(), '\n'));
    std::string error = take(parser.get_option(key), key, text, level, "bad value for option");
    if (!error.empty()) error = "invalid line " + line + " in config file: a.conf (" + error + ")";
    expect_equal(error_of([&] { parser.parse_config_file("a.conf", level); }), error);
    std::remove("a.conf");
  }

  void set_by_argument(const std::string& argument, int level) {
    static const std::regex forms[] = {std::regex("-(no_|)([^=]*)=?([^]*)"),
                                       std::regex("([-+])([^=]*)=?([^]*)"),
                                       std::regex("-()([^=]*)=?([^]*)")};
    std::smatch parts;
    const bool is_plain = !std::regex_match(argument, parts, forms[style]);
    const Option* option = nullptr;
    for (auto key = keys.begin(); !is_plain && option == nullptr && key != keys.end(); ++key) {
      if (parser.get_option(*key)->name == parts[2]) option = parser.get_option(*key);
    }
    std::string error;
    if (is_plain || (option == nullptr && pass_unknown)) {
      expected_remaining.push_back(argument);
    } else {
      std::string text = parts[3];
      const bool is_negated = parts[1] == "no_" || parts[1] == "-";
      const bool is_bool = option != nullptr && option->type == OPT_BOOL;
      const bool is_switch = is_bool && style != BOOL_STYLE_VALUE;
      const bool is_well_formed = is_switch ? text.empty() : !is_negated;
      if (is_switch && text.empty()) text = is_negated ? "false" : "true";
      if (is_bool && !is_switch) text = std::regex_replace(text, std::regex("FALSE"), "false");
      error = take(option, parts[2], text, level, "bad option format", is_well_formed);
      if (!error.empty()) error += ", command-line: " + argument;
    }
    const char* const arguments[] = {"host", argument.c_str()};
    expect_equal(error_of([&] { parser.parse_args(2, arguments, remaining, level); }), error);
    if (remaining != expected_remaining) std::abort();
  }

  std::map<const Option*, std::string> states;
  Strings remaining, expected_remaining;
};

int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  Input input = {data, data + size};
  Settings settings(input);
  const Strings words = {"true", "FALSE", "7", "-", ".", "1234567890123456", "fast", "=", "x y"};
  Strings keys(settings.keys.begin(), settings.keys.end());
  keys.push_back("absent");
  while (input.next != input.end) {
    const std::string key = input.one_of(keys);
    const Option* const option = settings.parser.get_option(key);
    const std::string name = option == nullptr ? key : option->name;
    const std::string text = input.some_of(words, 5);
    const std::string value = text.empty() ? "" : '=' + text;
    const int level = std::vector<int>{0, 1, INT_MIN, INT_MAX}[input.below(4)];
    if (input.below(32) == 0) settings.set_by_file(input, key, text, level);
    settings.set_by_argument(input.one_of({"-", "+", "-no_", ""}) + name + value, level);
    if (option == nullptr) continue;
    const auto expected = settings.states.emplace(option, "not set, level 0").first;
    expect_equal(state_of(settings.parser, key), expected->second);
  }
  return 0;
}
