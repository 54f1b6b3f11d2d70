#include "norq/tools/defaults.h"

#include <climits>

namespace norq {

bool set_default(OptionParser& options, const std::string& key, const std::string& value) {
  Option* const option = options.get_option(key);
  if (option == nullptr || option->is_set) return false;
  std::string help = option->help;
  if (help != "deprecated") {
    if (!help.empty()) help += ' ';
    help.append("(default: ").append(value).append(")");
  }
  options.parse_option(key, value, INT_MAX);

  // From here on nothing throws.
  option->help.swap(help);
  return true;
}

bool is_given(const OptionParser& options, const std::string& key) {
  const auto found = options.get_options().find(key);
  return found != options.get_options().end() && found->second.is_set &&
         found->second.level < INT_MAX;
}

}  // namespace norq
