#include "norq/tools/hints.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <map>
#include <optional>
#include <string_view>

namespace norq {

namespace {

// A rejected setting: of a name if it has a sign, otherwise of a key.
struct RejectedSetting {
  bool is_unknown;  // no option has the name; otherwise its form or value was rejected
  std::string name;
  std::string value;
  std::string_view sign = {};  // of arguments that are not negated
  OptionBoolStyle style = BOOL_STYLE_VALUE;
  bool negated = false;
};

std::optional<RejectedSetting> read_error(const OptionParser& options,
                                          const OptionParser::error& error, std::string_view text) {
  const bool is_unknown = text.rfind("unknown option: ", 0) == 0;
  if (!is_unknown && text.rfind("bad ", 0) != 0) return {};
  RejectedSetting setting = {is_unknown, error.name, error.value};
  const std::string& argument = error.command_line;
  if (argument.empty()) return setting;
  setting.style = options.get_bool_style();
  const bool has_no = setting.style == BOOL_STYLE_NO_PREFIX && argument.compare(1, 3, "no_") == 0;
  setting.sign = setting.style == BOOL_STYLE_PLUS_MINUS ? "+" : "-";
  setting.negated = setting.style == BOOL_STYLE_PLUS_MINUS ? argument.front() == '-' : has_no;
  return setting;
}

// Reads a text that ends with " (MESSAGE: KEY, value: VALUE)". Keys and values may contain the
// separator, so the longest registered key that fits is used.
std::optional<RejectedSetting> read_reason(const OptionParser& options, std::string_view text) {
  constexpr std::string_view unknown = " (unknown option: ";
  constexpr std::string_view rejected = " (bad value for option: ";
  constexpr std::string_view separator = ", value: ";
  const std::size_t start = std::min(text.find(unknown), text.find(rejected));
  if (start == std::string_view::npos || text.back() != ')') return {};
  const bool is_unknown = text.find(unknown) == start;
  text.remove_prefix(start + (is_unknown ? unknown : rejected).size());
  text.remove_suffix(1);
  std::string_view name = text.substr(0, text.find(separator));
  for (const auto& [key, option] : options.get_options()) {
    const bool fits =
        text.rfind(key, 0) == 0 && text.compare(key.size(), separator.size(), separator) == 0;
    if (fits && key.size() > name.size()) name = key;
  }
  const std::string_view value = text.substr(std::min(name.size() + separator.size(), text.size()));
  return RejectedSetting{is_unknown, std::string(name), std::string(value)};
}

constexpr std::size_t longest_name = 64;  // bits of a mask

// The positions of each byte in a name: bit i is set if the name has it i bytes from its end.
using Matches = std::array<std::uint64_t, std::size_t{UCHAR_MAX} + 1>;

Matches matches_of(std::string_view name) {
  Matches matches = {};
  for (std::size_t i = 0; i < name.size(); ++i) {
    const std::uint64_t bit = std::uint64_t{1} << (name.size() - 1 - i);
    matches.at(static_cast<unsigned char>(name[i])) |= bit;
  }
  return matches;
}

// The edit distance from a name of `size` bytes, or any number above `limit` if it is greater. By
// the algorithm of H. Hyyrö, "A Bit-Vector Algorithm for Computing Levenshtein and Damerau Edit
// Distances", Nordic Journal of Computing 10 (2003): a column of the distance matrix for each byte
// of `other`, a bit for each row. Both names are read from their ends, where names differ most.
std::size_t edit_distance(const Matches& matches, std::size_t size, std::string_view other,
                          std::size_t limit) {
  std::size_t distance = size;                 // in the last row
  std::uint64_t one_more = ~std::uint64_t{0};  // than in the row above
  std::uint64_t one_less = 0;
  std::uint64_t same = 0;  // as in the row above, in the previous column
  std::uint64_t previous_match = 0;
  for (std::size_t left = other.size(); left > 0 && distance <= limit + left; --left) {
    const std::uint64_t match = matches[static_cast<unsigned char>(other[left - 1])];
    const std::uint64_t transposed = ((~same & match) << 1) & previous_match;
    same = (((match & one_more) + one_more) ^ one_more) | match | one_less | transposed;
    const std::uint64_t increased = one_less | ~(same | one_more);  // from the previous column
    const std::uint64_t decreased = same & one_more;
    distance = distance + ((increased >> (size - 1)) & 1) - ((decreased >> (size - 1)) & 1);
    one_less = ((increased << 1) | 1) & same;
    one_more = (decreased << 1) | ~(same | (increased << 1) | 1);
    previous_match = match;
  }
  return distance;
}

// The placeholder of a value and what is accepted, by the number of the type.
constexpr std::array<std::pair<std::string_view, std::string_view>, 7> type_texts = {{
    {"=BOOL", "true or false"},
    {"=INT", "digits only, such as 7"},
    {"=INT", "an integer, such as -7"},
    {"=FLOAT", "digits with or without a point, such as 0.5"},
    {"=STR", ""},
    {"", ""},
    {"=ENUM", ""},
}};

// False for a number that is not an enumerator.
bool is_type(OptionType type) {
  return type >= OPT_BOOL && type <= OPT_ENUM;
}

// How to write an option; only a boolean can be negated.
std::string form(const RejectedSetting& setting, std::string_view name, OptionType type,
                 bool negated) {
  std::string text(setting.sign);
  const bool is_switch = type == OPT_BOOL && setting.style != BOOL_STYLE_VALUE;
  if (is_switch && negated) text = setting.style == BOOL_STYLE_PLUS_MINUS ? "-" : "-no_";
  text += name;
  if (!is_switch) text += type_texts.at(static_cast<std::size_t>(type)).first;
  if (type == OPT_FLAG && setting.sign.empty()) text += "=";
  return text;
}

// "--name" is read as "-name".
void drop_further_dashes(RejectedSetting* setting) {
  std::string& name = setting->name;
  if (name.rfind('-', 0) != 0) return;
  name.erase(0, name.find_first_not_of('-'));
  setting->negated = setting->style == BOOL_STYLE_NO_PREFIX && name.rfind("no_", 0) == 0;
  if (setting->negated) name.erase(0, 3);
}

// The types of the nearest names, by distance and name.
using NearestNames = std::map<std::pair<std::size_t, std::string_view>, OptionType>;

constexpr std::size_t most_names = 3;
constexpr std::size_t most_edits = 3;

NearestNames nearest_names(const OptionParser& options, const RejectedSetting& setting) {
  const std::string_view written = setting.name;
  const Matches matches = matches_of(written);
  NearestNames nearest;
  for (const auto& [key, option] : options.get_options()) {
    const std::string& name = setting.sign.empty() ? key : option.name;
    if (!is_type(option.type)) continue;
    if (setting.style == BOOL_STYLE_NO_PREFIX && name.rfind("no_", 0) == 0) continue;
    const auto [shorter, longer] = std::minmax({written.size(), name.size()});
    std::size_t limit = std::clamp<std::size_t>(longer / 3, 1, most_edits);
    if (nearest.size() == most_names) limit = std::min(limit, nearest.rbegin()->first.first);
    if (shorter == 0 || longer == 1 || longer - shorter > limit) continue;
    const auto missing = std::count_if(name.begin(), name.end(), [&](char byte) {
      return matches.at(static_cast<unsigned char>(byte)) == 0;
    });
    if (static_cast<std::size_t>(missing) > limit) continue;  // each of them needs an edit
    const std::size_t distance = edit_distance(matches, written.size(), name, limit);
    if (distance <= limit) nearest.try_emplace({distance, name}, option.type);
    if (nearest.size() > most_names) nearest.erase(std::prev(nearest.end()));
  }
  return nearest;
}

std::string unknown_hint(const OptionParser& options, RejectedSetting setting) {
  drop_further_dashes(&setting);
  if (setting.name.size() > longest_name) return "";
  std::string hint;
  for (const auto& [place, type] : nearest_names(options, setting)) {
    hint += hint.empty() ? "did you mean " : " or ";
    if (setting.sign.empty()) {
      hint += place.second;
    } else {
      hint += form(setting, place.second, type, setting.negated);
    }
  }
  return hint.empty() ? hint : hint + "?";
}

std::string rejected_hint(const OptionParser& options, const RejectedSetting& setting) {
  const auto& table = options.get_options();
  const auto found = std::find_if(table.begin(), table.end(), [&](const auto& entry) {
    return (setting.sign.empty() ? entry.first : entry.second.name) == setting.name;
  });
  if (found == table.end() || !is_type(found->second.type)) return "";
  const Option& option = found->second;
  std::string form_hint = "write " + form(setting, setting.name, option.type, setting.negated);
  if (option.type == OPT_BOOL && setting.style != BOOL_STYLE_VALUE && !setting.negated) {
    return form_hint + " or " + form(setting, setting.name, OPT_BOOL, true);
  }
  if (option.type == OPT_FLAG || setting.negated) return form_hint;

  std::string accepted(type_texts.at(static_cast<std::size_t>(option.type)).second);
  if (option.enum_values != nullptr) {
    for (const auto& [name, code_and_help] : *option.enum_values) {
      accepted.append(accepted.empty() ? "one of: " : ", ").append(name);
    }
  }
  if (accepted.empty()) return "";
  if (!setting.value.empty()) {
    return std::string(setting.sign) + setting.name + " takes " + accepted;
  }
  const bool is_choice = option.type == OPT_BOOL || option.type == OPT_ENUM;
  if (is_choice) form_hint.append(", ").append(accepted);
  return form_hint;
}

}  // namespace

std::string explain(const OptionParser& options, const Exception& refusal) {
  std::string text = refusal.what();
  const auto* const error = dynamic_cast<const OptionParser::error*>(&refusal);
  const std::optional<RejectedSetting> setting =
      error == nullptr ? read_reason(options, text) : read_error(options, *error, text);
  if (!setting.has_value()) return text;
  const RejectedSetting& rejected = *setting;
  const std::string hint =
      rejected.is_unknown ? unknown_hint(options, rejected) : rejected_hint(options, rejected);
  if (!hint.empty()) text.append(" (").append(hint).append(")");
  return text;
}

}  // namespace norq
