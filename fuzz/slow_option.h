#ifndef NORQ_FUZZ_SLOW_OPTION_H
#define NORQ_FUZZ_SLOW_OPTION_H

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <string>

#include "norq/options/option.h"

namespace norq {

// An option, and the rules by which it takes a value, read as directly as possible. An enumeration
// knows "fast" for 7.
struct SlowOption {
  std::string key;
  std::string name;
  int type;
  std::string state = "not set";  // what the getters answer
  int level = std::numeric_limits<int>::max();

  bool take(const std::string& text, int new_level) {
    const auto are_digits = [](const std::string& t) {
      return !t.empty() && t.find_first_not_of("0123456789") == std::string::npos;
    };
    const bool is_int = type == OPT_UINT || type == OPT_INT;
    const bool negative = type == OPT_INT && text[0] == '-';
    std::string digits = text.substr(negative ? 1 : 0);
    const std::size_t point = digits.find('.');
    if (type == OPT_FLOAT && point != std::string::npos) digits.erase(point, 1);
    std::ostringstream out;
    out.precision(9);
    if (type == OPT_BOOL && (text == "true" || text == "false")) out << "bool " << (text == "true");
    if (is_int && are_digits(digits)) {
      const long long value = std::strtoll(text.c_str(), nullptr, 10);
      out << "int " << std::clamp<long long>(value, -2147483648LL, 2147483647LL);
    }
    if (type == OPT_FLOAT && are_digits(digits))
      out << "float " << static_cast<float>(std::strtod(text.c_str(), nullptr));
    if (type == OPT_STR) out << "str " << text.c_str();  // up to a NUL byte
    if (type == OPT_ENUM && text == "fast") out << "int 7";
    const bool is_flag = type == OPT_FLAG && text.empty();
    if (out.str().empty() && !is_flag) return false;
    if (new_level > level) return true;
    level = new_level;
    state = out.str() + (is_flag ? "set" : " set");
    return true;
  }
};

}  // namespace norq

#endif  // NORQ_FUZZ_SLOW_OPTION_H
