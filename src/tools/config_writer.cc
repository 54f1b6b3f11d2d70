#include "norq/tools/config_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <functional>
#include <map>
#include <optional>
#include <ostream>
#include <sstream>
#include <string_view>

#include "norq/utils/string_utils.h"
#include "tools/registration_order.h"

namespace norq {

namespace {

std::string listing(OptionParser& options) {
  std::ostringstream text;
  text.exceptions(std::ios_base::badbit);  // so that std::bad_alloc propagates
  options.print_help(text, "", PRINT_ORDER_GROUP_NAME, PRINT_STYLE_TAB);
  return text.str();
}

// The names of the help groups by number, or none if one has several lines. Only a listing shows
// them: each group is a line with its name, its options, and an empty line unless it is the last.
std::map<int, std::string> group_names(const OptionParser& options) {
  std::map<int, std::size_t> lengths;  // of what the listing shows of each group's options
  for (const auto& [key, option] : options.get_options()) {
    OptionParser single(options.get_bool_style(), false);
    single.add_option(key, option.type, "");
    *single.get_option(key) = option;
    lengths[option.group] += listing(single).size() - 1;  // its group has an empty name
  }
  // `print_help` is not const because it stores an empty name for a number that has none. No other
  // member can tell the difference.
  const std::string text = listing(const_cast<OptionParser&>(options));
  std::map<int, std::string> names;
  std::size_t start = 0;
  for (const auto& [group, length] : lengths) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    names[group] = text.substr(start, end - start);
    start = end + 1 + length + 1;
  }
  if (start != text.size() + 1) names.clear();
  return names;
}

// Whether a file can hold `text` as a key or value, as far as both have the same rules.
bool is_plain(std::string_view text) {
  return text.find('\n') == std::string_view::npos && str::strip_view(text, str::IsSpace()) == text;
}

bool is_key(std::string_view text) {
  return is_plain(text) && text.find('=') == std::string_view::npos && text.substr(0, 1) != "#";
}

bool is_value(std::string_view text) {
  return is_plain(text) && (text.empty() || text.back() != '\\');
}

// The number `digits` times the `exponent`-th power of ten, written without an exponent.
std::string plain_decimal(std::string digits, int exponent) {
  if (exponent >= 0) return digits.append(static_cast<std::size_t>(exponent), '0');
  const auto fraction_length = static_cast<std::size_t>(-exponent);
  if (digits.size() <= fraction_length) digits.insert(0, fraction_length + 1 - digits.size(), '0');
  return digits.insert(digits.size() - fraction_length, ".");
}

// Of the numbers with a given count of digits, only the two next to `value` can be read back as it:
// the nearest, or the one above or below that. With 17 digits, the nearest always is.
std::optional<std::string> float_text(float value) {
  if (!std::isfinite(value) || std::signbit(value)) return std::nullopt;
  OptionParser reader(BOOL_STYLE_NO_PREFIX, false);
  reader.add_option("", OPT_FLOAT, "");
  for (int precision = 0;; ++precision) {
    std::array<char, 32> buffer{};  // NOLINT(readability-magic-numbers)
    const auto written =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), static_cast<double>(value),
                      std::chars_format::scientific, precision);
    std::string nearest(buffer.data(), written.ptr);  // D.DDDe+DD
    nearest.erase(1, precision == 0 ? 0 : 1);
    const int exponent = std::stoi(nearest.substr(nearest.find('e') + 1)) - precision;
    const long long digits = std::stoll(nearest);
    for (const long long candidate : {digits, digits + 1, digits - 1}) {
      std::string text = plain_decimal(std::to_string(candidate), exponent);
      reader.parse_option("", text, 0);
      if (std::equal_to<>()(reader.get_option("")->value.float_value, value)) return text;
    }
  }
}

// The text that sets an option to its value again, if there is one.
std::optional<std::string> value_text(const Option& option) {
  switch (option.type) {
    case OPT_BOOL:
      if (option.value.bool_value) return "true";
      return "false";
    case OPT_UINT:
    case OPT_INT:
      if (option.type == OPT_UINT && option.value.int_value < 0) break;
      return std::to_string(option.value.int_value);
    case OPT_FLOAT:
      return float_text(option.value.float_value);
    case OPT_STR:
      if (option.value.str_value == nullptr || !is_value(option.value.str_value)) break;
      return option.value.str_value;
    case OPT_FLAG:
      return "";
    case OPT_ENUM:
      if (option.enum_values == nullptr) break;
      for (const auto& [name, value] : *option.enum_values) {
        if (value.first == option.value.int_value && is_value(name)) return name;
      }
  }
  return std::nullopt;
}

// What an unset option's comment shows in place of a value.
std::string accepted_values(const Option& option) {
  constexpr std::array<const char*, 5> by_type = {"true|false", "INT", "INT", "FLOAT", "STR"};
  const auto type = static_cast<std::size_t>(option.type);
  std::string names = type < by_type.size() ? by_type[type] : "";
  if (option.type != OPT_ENUM || option.enum_values == nullptr) return names;
  for (const auto& [name, value] : *option.enum_values) {
    if (is_value(name)) names.append(names.empty() ? "" : "|").append(name);
  }
  return names;
}

void append_comment(std::string_view text, std::string* out) {
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    out->append(line.empty() ? "#" : "# ").append(line).append(1, '\n');
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
}

}  // namespace

std::vector<std::string> write_config(const OptionParser& options, std::ostream& out,
                                      bool with_unset) {
  std::map<int, std::string> names = group_names(options);
  std::vector<std::string> left_out;
  std::string text;
  int group = 0;
  for (const OptionEntry* const entry : in_registration_order(options)) {
    const auto& [key, option] = *entry;
    if (!option.is_set && !with_unset) continue;
    const auto value = option.is_set ? value_text(option) : accepted_values(option);
    if (!is_key(key) || !value.has_value()) {
      left_out.push_back(key);
      continue;
    }
    text.append(text.empty() ? "" : "\n");
    if (option.group != group && !names[option.group].empty()) {
      text.append("## ").append(names[option.group]).append("\n\n");
    }
    group = option.group;
    append_comment(option.help, &text);
    text.append(option.is_set ? "" : "#").append(key).append(" =");
    text.append(value->empty() ? "" : " ").append(*value).append("\n");
  }
  out.write(text.data(), static_cast<std::streamsize>(text.size())).flush();
  return left_out;
}

}  // namespace norq
