#include "norq/options/option_parser.h"

#include <memory>
#include <utility>

#include "options/handle_option.h"

namespace norq {

OptionParser::error::error(const std::string& message, const std::string& option_name,
                           const std::string& value_text, const std::string& argument)
    : Exception(message, true), name(option_name), value(value_text), command_line(argument) {
  *this << ": " << name << ", value: " << value;
  if (!command_line.empty()) *this << ", command-line: " << command_line;
}

OptionParser::error::~error() = default;

OptionParser::OptionParser(OptionBoolStyle style, bool pass_unknown_options)
    : bool_style(style), pass_unknown(pass_unknown_options) {}

OptionParser::~OptionParser() = default;

void OptionParser::reset() noexcept {
  options.clear(false);
  help_group_ids.clear(false);
  help_group_names.clear(false);
  option_counter = 0;
  help_group_counter = 0;
  cur_help_group = 0;
}

void OptionParser::set_cur_help_group(const std::string& group) {
  const auto found = help_group_ids.find(group);
  if (found != help_group_ids.end()) {
    cur_help_group = found->second;
    return;
  }
  const int number = help_group_counter + 1;
  std::string& name = help_group_names[number];  // stays empty if a later step throws
  std::string new_name = group;
  help_group_ids[group] = number;

  // Nothing throws from here on.
  name = std::move(new_name);
  help_group_counter = number;
  cur_help_group = number;
}

bool OptionParser::add_option(const std::string& key, OptionType type, const std::string& help) {
  return add_option(key, key, type, help);
}

bool OptionParser::add_option(const std::string& key, const std::string& name, OptionType type,
                              const std::string& help) {
  // An insertion attempt would grow the table even for a key that is registered.
  if (options.grows_next() && find_option(key) != nullptr) return false;
  const int index = option_counter + 1;
  if (!options.try_emplace(key, name, type, help, cur_help_group, index)) return false;
  option_counter = index;
  return true;
}

bool OptionParser::add_enum_value(const std::string& key, const std::string& value_name, int code,
                                  const std::string& help) {
  Option* const option = find_option(key);
  if (option == nullptr || option->type != OPT_ENUM) return false;
  const Option::EnumValues::value_type value(value_name, {code, help});
  if (option->enum_values != nullptr) return option->enum_values->insert(value).second;
  auto values = std::make_unique<Option::EnumValues>();
  values->insert(value);
  option->enum_values = std::move(values);
  return true;
}

bool OptionParser::del_option(const std::string& key) noexcept {
  return options.erase(key);
}

bool OptionParser::set_option_help(const std::string& key, const std::string& help) {
  Option* const option = find_option(key);
  if (option == nullptr) return false;
  option->help = help;
  return true;
}

void OptionParser::parse_option(const std::string& key, const std::string& value, int level) {
  Option* const option = find_option(key);
  if (option == nullptr) throw error("unknown option", key, value, "");
  if (!handle_option(*option, value, level)) throw error("bad value for option", key, value, "");
}

bool OptionParser::has_option(const std::string& key, OptionType* type) const noexcept {
  const Option* const option = find_option(key);
  if (option == nullptr) return false;
  if (type != nullptr) *type = option->type;
  return true;
}

Option* OptionParser::get_option(const std::string& key) noexcept {
  return find_option(key);
}

const std::string& OptionParser::get_option_help(const std::string& key) const noexcept {
  static const std::string none;
  const Option* const option = find_option(key);
  return option == nullptr ? none : option->help;
}

void OptionParser::get_options_set(hsh::HashSet<std::string>& out) const {
  std::vector<const std::string*> inserted(options.size());
  std::size_t count = 0;
  try {
    for (const auto& [key, option] : options) {
      if (option.is_set && out.insert(key)) inserted[count++] = &key;
    }
  } catch (...) {
    while (count > 0) out.erase(*inserted[--count]);
    throw;
  }
}

namespace {

// Whether a getter for `types` may read `option`, which may be null.
template <class... Types>
bool is_readable(const Option* option, Types... types) {
  return option != nullptr && option->is_set && ((option->type == types) || ...);
}

}  // namespace

bool OptionParser::get_bool_option(const std::string& key, bool* out) const noexcept {
  const Option* const option = find_option(key);
  if (!is_readable(option, OPT_BOOL)) return false;
  *out = option->value.bool_value;
  return true;
}

bool OptionParser::get_int_option(const std::string& key, int* out) const noexcept {
  const Option* const option = find_option(key);
  if (!is_readable(option, OPT_UINT, OPT_INT, OPT_ENUM)) return false;
  *out = option->value.int_value;
  return true;
}

bool OptionParser::get_float_option(const std::string& key, float* out) const noexcept {
  const Option* const option = find_option(key);
  if (!is_readable(option, OPT_FLOAT)) return false;
  *out = option->value.float_value;
  return true;
}

bool OptionParser::get_str_option(const std::string& key, std::string* out) const {
  const Option* const option = find_option(key);
  if (!is_readable(option, OPT_STR) || option->value.str_value == nullptr) return false;
  *out = option->value.str_value;
  return true;
}

bool OptionParser::get_flag_option(const std::string& key) const noexcept {
  const Option* const option = find_option(key);
  return option != nullptr && option->is_set;
}

// One copy for all callers. Inlining it would make every program 2 KB larger.
[[gnu::noinline]] const Option* OptionParser::find_option(const std::string& key) const noexcept {
  const auto found = options.find(key);
  return found == options.end() ? nullptr : &found->second;
}

Option* OptionParser::find_option(const std::string& key) noexcept {
  return const_cast<Option*>(std::as_const(*this).find_option(key));
}

}  // namespace norq
