#ifndef NORQ_FUZZ_FUZZ_H
#define NORQ_FUZZ_FUZZ_H

#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "../tests/session.h"

namespace norq {

// What a target does with an input. Throws if something does not hold.
void check(const std::string& input);

// An option, and the rules by which it takes a value, read as directly as possible. An enumeration
// knows "fast" for 7.
struct SlowOption {
  std::string key;
  std::string name;
  int type;
  std::string state = "not set";  // what the getters answer
  int level = 0;                  // that its value came with

  bool take(const std::string& text, int new_level) {
    std::string digits = text.substr(type == OPT_INT && text[0] == '-' ? 1 : 0);
    if (type == OPT_FLOAT) digits.erase(std::min(digits.find('.'), digits.size()), 1);
    const bool is_number =
        !digits.empty() && digits.find_first_not_of("0123456789") == std::string::npos;
    std::ostringstream out;
    out.precision(9);
    if (type == OPT_BOOL && (text == "true" || text == "false")) out << "bool " << (text == "true");
    if ((type == OPT_UINT || type == OPT_INT) && is_number) {
      const long long value = std::strtoll(text.c_str(), nullptr, 10);
      out << "int " << std::clamp<long long>(value, -2147483648LL, 2147483647LL);
    }
    if (type == OPT_FLOAT && is_number)
      out << "float " << static_cast<float>(std::strtod(text.c_str(), nullptr));
    if (type == OPT_STR) out << "str " << text.c_str();  // up to a NUL byte
    if (type == OPT_ENUM && text == "fast") out << "int 7";
    const bool is_flag = type == OPT_FLAG && text.empty();
    if (out.str().empty() && !is_flag) return false;
    if (state != "not set" && new_level > level) return true;
    level = new_level;
    state = out.str() + (is_flag ? "set" : " set");
    return true;
  }
};

}  // namespace norq

#endif  // NORQ_FUZZ_FUZZ_H
