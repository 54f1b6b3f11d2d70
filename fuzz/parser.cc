// Sets random options by keys and by arguments, lists them in every order and layout,
// and compares all with a reference model. Without libFuzzer it runs a fixed set of inputs.

#include <algorithm>
#include <climits>
#include <iostream>
#include <map>
#include <random>
#include <regex>

#include "norq/options/option_parser.h"
#include "norq/utils/sort.h"

using namespace norq;
using Strings = std::vector<std::string>;

static void expect_equal(const std::string& actual, const std::string& expected) {
  if (actual == expected) return;
  std::cerr << "\nactual:\n" << actual << "\nexpected:\n" << expected << '\n';
  std::abort();
}

template <class Call>
static std::string error_of(Call call) try {
  call();
  return "";
} catch (const Exception& error) {
  return error.what();
}

static Strings lines_of(const std::string& text, std::size_t width) {
  Strings lines;
  std::istringstream paragraphs(text + '\n');
  for (std::string paragraph; std::getline(paragraphs, paragraph);) {
    lines.push_back(paragraph.size() > width ? "" : paragraph);
    if (paragraph.size() <= width) continue;
    std::replace(paragraph.begin(), paragraph.end(), '\t', ' ');
    std::istringstream words(paragraph + ' ');
    for (std::string word; std::getline(words, word, ' '); lines.back() += word + ' ') {
      if (lines.back().size() + word.size() + 1 > width) lines.emplace_back();
    }
  }
  return lines;
}

// Reads the bytes of an input as choices. After the last byte every choice is 0.
struct Input {
  std::size_t below(std::size_t limit) { return next == end ? 0 : *next++ % limit; }
  std::string one_of(const Strings& texts) { return texts[below(texts.size())]; }
  std::string some_of(const Strings& texts, std::size_t most) {
    std::string joined;
    for (std::size_t left = below(most + 1); left > 0; --left) joined += one_of(texts);
    return joined;
  }

  const unsigned char* next;
  const unsigned char* end;
};

// A parser and its reference model. Group 1 is called "Group 1".
struct Model : OptionParser {
  Model(OptionBoolStyle style, bool pass) : OptionParser(style, pass), passes(pass) {}

  void add_options(Input& input) {
    const Strings words = {"\n", " ", "\t", "and ", "words ", "in a line ", std::string(35, 'w')};
    const std::string long_name(input.below(2) == 0 ? 9 : 68 + input.below(12), 'n');
    for (std::size_t left = input.below(250), groups = 0; left > 0; --left) {
      const std::string key = input.one_of({"k", "no_", "nox"}) + std::to_string(input.below(99));
      const std::string name = input.one_of({key, key, key, "a", "no_a", "\xe9", long_name});
      const std::string help = input.below(8) == 0 ? "deprecated" : input.some_of(words, 15);
      if (input.below(8) == 0) set_cur_help_group("Group " + std::to_string(++groups));
      add_option(key, name, static_cast<OptionType>(input.below(7)), help);
      add_enum_value(key, "fast", 7, help);
      if (input.below(8) == 0) del_option(key);
    }
  }

  // Returns the error, or "".
  std::string take(const Option* option, const std::string& name, const std::string& text,
                   int level, const std::string& message, bool is_well_formed = true) {
    static const std::regex forms[] = {std::regex("true|false"), std::regex("\\d+"),
                                       std::regex("-?\\d+"),     std::regex("\\d+[.]?\\d*|[.]\\d+"),
                                       std::regex("[^]*"),       std::regex(""),
                                       std::regex("fast")};
    const std::string details = ": " + name + ", value: " + text;
    if (option == nullptr) return "unknown option" + details;
    if (!is_well_formed || !std::regex_match(text, forms[option->type])) return message + details;
    if (option->is_set && option->level < level) return "";
    const double number = std::atof(text.c_str());  // exact within the range of int
    const std::string integer = std::to_string(int(std::clamp<double>(number, INT_MIN, INT_MAX)));
    const std::string fraction = std::to_string(float(number));
    const std::string values[] = {text, integer, integer, fraction, text, text, "7"};
    states[option] = values[option->type] + ", level " + std::to_string(level);
    return "";
  }

  void set_by_argument(const std::string& argument, int level) {
    static const std::regex forms[] = {std::regex("-(no_|)([^=]*)=?([^]*)"),
                                       std::regex("([-+])([^=]*)=?([^]*)"),
                                       std::regex("-()([^=]*)=?([^]*)")};
    std::smatch parts;
    const bool is_plain = !std::regex_match(argument, parts, forms[get_bool_style()]);
    const Option* option = nullptr;
    for (const auto& [key, candidate] : get_options()) {
      if (option == nullptr && candidate.name == parts[2]) option = &candidate;
    }
    std::string message;
    if (is_plain || (option == nullptr && passes)) {
      expected_remaining.push_back(argument);
    } else {
      std::string text = parts[3];
      const bool is_negated = parts[1] == "no_" || parts[1] == "-";
      const bool is_bool = option != nullptr && option->type == OPT_BOOL;
      const bool is_switch = is_bool && get_bool_style() != BOOL_STYLE_VALUE;
      const bool is_well_formed = is_switch ? text.empty() : !is_negated;
      if (is_switch && text.empty()) text = is_negated ? "false" : "true";
      message = take(option, parts[2], text, level, "bad option format", is_well_formed);
      if (!message.empty()) message += ", command-line: " + argument;
    }
    const char* const arguments[] = {"host", argument.c_str()};
    expect_equal(error_of([&] { parse_args(2, arguments, remaining, level); }), message);
    if (remaining != expected_remaining) std::abort();
  }

  void check_state(const Option& option, const std::string& key) {
    bool flag = false;
    int number = 0;
    float fraction = 0;
    std::string text = get_flag_option(key) ? "" : "not set";
    if (get_bool_option(key, &flag)) text = flag ? "true" : "false";
    if (get_int_option(key, &number)) text = std::to_string(number);
    if (get_float_option(key, &fraction)) text = std::to_string(fraction);
    get_str_option(key, &text);
    const auto expected = states.emplace(&option, "not set, level 0").first;
    expect_equal(text + ", level " + std::to_string(option.level), expected->second);
  }

  std::string entry_of(const Option& option) const {
    const std::string signs[] = {" -[no_]", " (+|-)", " -"};
    const std::string bool_tag = get_bool_style() == BOOL_STYLE_VALUE ? "=BOOL" : "";
    const std::string tags[] = {bool_tag, "=INT", "=INT", "=FLOAT", "=STR", "", "=ENUM"};
    return (option.type == OPT_BOOL ? signs[get_bool_style()] : " -") + option.name +
           tags[option.type];
  }

  void list(OptionPrintOrder order, OptionPrintStyle layout) {
    std::vector<std::pair<std::string, const Option*>> elements;  // with their sort keys
    std::size_t widest = 0;
    for (const auto& [key, option] : get_options()) {
      const std::string index = std::to_string(1000 + option.index);
      const std::string type = std::to_string(option.type);
      const std::string group = std::to_string(100 + option.group);
      const std::string deciding[] = {
          index, option.name, type + index, type + option.name, group + option.name, ""};
      elements.emplace_back(deciding[order], &option);
      widest = std::max(widest, entry_of(option).size());
    }
    norq::sort(elements.data(), elements.data() + elements.size(),
               [](const auto& a, const auto& b) { return a.first < b.first; });
    const std::size_t indents[] = {0, widest + 1, 10};
    const std::size_t indent = indents[layout];
    const std::size_t width = layout == PRINT_STYLE_TAB || indent > 79 ? SIZE_MAX : 80 - indent;
    const std::string margin = '\n' + std::string(indent, ' ');
    std::string listing = "Heading\n";
    int last_group = -1;
    for (const auto& [deciding, option] : elements) {
      if (order == PRINT_ORDER_GROUP_NAME && option->group != last_group) {
        listing += last_group == -1 ? "" : "\n";
        last_group = option->group;
        listing += (last_group == 0 ? "" : "Group " + std::to_string(last_group)) + '\n';
      }
      const std::string entry = entry_of(*option);
      std::string help = option->help;
      if (option->type == OPT_ENUM) help += "\nPossible values:\n- fast : " + help;
      const std::string gaps[] = {"\t", std::string(widest + 1 - entry.size(), ' '), margin};
      std::string gap = gaps[layout];
      listing += entry;
      for (const std::string& line : help == "deprecated" ? Strings() : lines_of(help, width)) {
        listing += std::exchange(gap, margin) + line;
      }
      listing += '\n';
    }
    std::ostringstream actual;
    print_help(actual, "Heading", order, layout);
    expect_equal(actual.str(), listing);
  }

  bool passes;
  std::map<const Option*, std::string> states;
  Strings remaining, expected_remaining;
};

// Runs one input. Aborts if the library and the model differ.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  Input input = {data, data + size};
  const auto style = static_cast<OptionBoolStyle>(input.below(3));
  Model model(style, input.below(2) == 0);
  model.add_options(input);
  const Strings words = {"true", "false", "7", "-", ".", "1234567890123456", "fast", "=", "x y"};
  Strings keys = {"absent"};
  for (const auto& [key, option] : model.get_options()) keys.push_back(key);
  while (input.next != input.end) {
    const std::string key = input.one_of(keys);
    const Option* const option = model.get_option(key);
    const std::string name = option == nullptr ? key : option->name;
    const std::string text = input.some_of(words, 5);
    const std::string value = text.empty() ? "" : '=' + text;
    const int level = std::vector<int>{0, 1, INT_MIN, INT_MAX}[input.below(4)];
    const std::string message = model.take(option, key, text, level, "bad value for option");
    expect_equal(error_of([&] { model.parse_option(key, text, level); }), message);
    model.set_by_argument(input.one_of({"-", "+", "-no_", ""}) + name + value, level);
    if (option != nullptr) model.check_state(*option, key);
    const auto order = static_cast<OptionPrintOrder>(input.below(6));  // the last is unknown
    if (input.below(32) == 0) model.list(order, static_cast<OptionPrintStyle>(input.below(3)));
  }
  return 0;
}

#ifndef NORQ_LIBFUZZER
int main() {
  std::mt19937 random(2027);
  for (int number = 0; number < 120; ++number) {
    std::cerr << "input " << number << '\r';  // a failure prints after this
    std::vector<unsigned char> bytes(random() % 6000);
    for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(random());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  }
}
#endif
