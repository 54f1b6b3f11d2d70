#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "norq/options/option_parser.h"
#include "options/handle_option.h"

namespace norq {

namespace {

bool is_option_argument(const char* argument, OptionBoolStyle style) {
  return argument[0] == '-' || (argument[0] == '+' && style == BOOL_STYLE_PLUS_MINUS);
}

bool is_negated(const std::string& argument, const std::string& prefix, OptionBoolStyle style) {
  switch (style) {
    case BOOL_STYLE_NO_PREFIX:
      return !prefix.empty();
    case BOOL_STYLE_PLUS_MINUS:
      return argument.front() == '-';
    case BOOL_STYLE_VALUE:
      break;
  }
  return false;
}

using OptionTable = hsh::HashMap<std::string, Option>;

// Finds options by name, in constant time on average. If several options have the same name, it
// finds the first one in the table's iteration order. Valid until an option is added, removed or
// renamed.
class NameIndex {
 public:
  // Visits every option. If every name equals its option's key, the table itself is the index.
  explicit NameIndex(OptionTable& option_table) : options(option_table) {
    const bool names_are_keys = std::all_of(options.begin(), options.end(), [](const auto& entry) {
      return entry.first == entry.second.name;
    });
    if (names_are_keys) return;
    first_by_name.emplace();
    for (auto& [key, option] : options) first_by_name->try_emplace(option.name, &option);
  }

  Option* find(const std::string& name) {
    if (first_by_name.has_value()) {
      const auto found = first_by_name->find(name);
      return found == first_by_name->end() ? nullptr : found->second;
    }
    const auto found = options.find(name);
    return found == options.end() ? nullptr : &found->second;
  }

 private:
  OptionTable& options;
  std::optional<hsh::HashMap<std::string_view, Option*, hsh::hash<std::string>>> first_by_name;
};

// The same in every locale, unlike tolower.
char lower_case(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

// Turns the value of a boolean's argument into a text that `handle_option` accepts. Returns false
// if the argument has a value but the style allows none, or has no value but the style needs one.
bool complete_bool_value(OptionBoolStyle style, bool negated, std::string* value) {
  if (style == BOOL_STYLE_VALUE) {
    std::transform(value->begin(), value->end(), value->begin(), lower_case);
    return !value->empty();
  }
  if (!value->empty()) return false;
  *value = negated ? "false" : "true";
  return true;
}

}  // namespace

void OptionParser::parse_args(int argc, const char* const* argv,
                              std::vector<std::string>& remaining, int level) {
  std::optional<NameIndex> index;  // created for the first option argument
  std::string argument;
  std::string name;
  std::string value;
  std::string prefix;
  for (int i = 1; i < argc; ++i) {
    if (!is_option_argument(argv[i], bool_style)) {
      remaining.emplace_back(argv[i]);
      continue;
    }
    argument = argv[i];
    split_option(argument, &name, &value, &prefix);
    if (!index.has_value()) index.emplace(options);
    Option* const option = index->find(name);
    if (option == nullptr) {
      if (!pass_unknown) throw error("unknown option", name, value, argument);
      remaining.emplace_back(argv[i]);
      continue;
    }
    const bool negated = is_negated(argument, prefix, bool_style);
    const bool well_formed =
        option->type == OPT_BOOL ? complete_bool_value(bool_style, negated, &value) : !negated;
    if (!well_formed || !handle_option(*option, value, level)) {
      throw error("bad option format", name, value, argument);
    }
  }
}

void OptionParser::split_option(const std::string& argument, std::string* name, std::string* value,
                                std::string* prefix) const {
  std::string_view rest = argument;
  rest.remove_prefix(1);  // the sign
  const bool negated = bool_style == BOOL_STYLE_NO_PREFIX && rest.substr(0, 3) == "no_";
  prefix->assign("no_", negated ? 3 : 0);
  rest.remove_prefix(prefix->size());

  const std::size_t equals = std::min(rest.find('='), rest.size());
  *name = rest.substr(0, equals);
  rest.remove_prefix(equals);
  *value = rest.substr(rest.empty() ? 0 : 1);
}

}  // namespace norq
