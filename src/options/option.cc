#include "norq/options/option.h"

#include <cstdlib>
#include <cstring>
#include <utility>

#include "options/handle_option.h"

namespace norq {

namespace {

Option::Value copy_value(const Option& option) {
  switch (option.type) {
    case OPT_STR: {
      const char* const text = option.value.str_value;
      return {text == nullptr ? nullptr : duplicate(text, std::strlen(text))};
    }
    case OPT_BOOL:
    case OPT_UINT:
    case OPT_INT:
    case OPT_FLOAT:
    case OPT_ENUM:
      return option.value;
    case OPT_FLAG:
      break;
  }
  return {nullptr};
}

}  // namespace

Option::Option(const std::string& option_name, OptionType option_type, const std::string& help_text,
               int help_group, int ordinal)
    : name(option_name), type(option_type), help(help_text), group(help_group), index(ordinal) {}

Option::Option(const Option& other) {
  copy_from(other);
}

Option& Option::operator=(const Option& other) {
  if (this == &other) return *this;
  char* const old_text = type == OPT_STR ? value.str_value : nullptr;
  copy_from(other);
  std::free(old_text);
  return *this;
}

Option::~Option() {
  if (type == OPT_STR) std::free(value.str_value);
}

void Option::copy_from(const Option& other) {
  std::string name_copy = other.name;
  std::string help_copy = other.help;
  std::unique_ptr<EnumValues> enum_copy;
  if (other.type == OPT_ENUM && other.enum_values != nullptr) {
    enum_copy = std::make_unique<EnumValues>(*other.enum_values);
  }
  value = copy_value(other);

  // Nothing throws from here on.
  name = std::move(name_copy);
  type = other.type;
  help = std::move(help_copy);
  group = other.group;
  is_set = other.is_set;
  index = other.index;
  level = other.level;
  enum_values = std::move(enum_copy);
}

}  // namespace norq
