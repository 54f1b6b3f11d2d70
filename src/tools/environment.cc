#include "norq/tools/environment.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "tools/registration_order.h"

namespace norq {

namespace {

// Converts a byte of a key to one of a variable's name, the same way in every locale.
char variable_byte(char byte) {
  if (byte >= 'a' && byte <= 'z') return static_cast<char>(byte - 'a' + 'A');
  const bool stays = (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9');
  return stays ? byte : '_';
}

}  // namespace

void parse_environment(OptionParser& options, const std::string& prefix, int level) {
  // std::getenv would find the variable A with the value "B=C" under the name "A=B".
  if (prefix.find('=') != std::string::npos || prefix.find('\0') != std::string::npos) return;
  for (const OptionEntry* const entry : in_registration_order(options)) {
    const std::string& key = entry->first;
    std::string variable = prefix;
    std::transform(key.begin(), key.end(), std::back_inserter(variable), variable_byte);
    const char* const value = std::getenv(variable.c_str());
    if (value == nullptr) continue;
    try {
      options.parse_option(key, value, level);
    } catch (const OptionParser::error& error) {
      throw Exception("invalid environment variable ", true)
          << variable << " (" << error.what() << ")";
    }
  }
}

}  // namespace norq
