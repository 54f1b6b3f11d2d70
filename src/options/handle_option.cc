#include "options/handle_option.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <string_view>

namespace norq {

namespace {

static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<float>::is_iec559,
              "narrowing a double beyond the range of float gives infinity");

bool is_digit(char byte) {
  return byte >= '0' && byte <= '9';
}

// Decimal numbers of up to this many digits, and powers of ten up to 10^15, are exact as doubles.
constexpr std::size_t exact_digits = 15;
constexpr std::array<double, exact_digits + 1> powers_of_ten = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// Whether a quotient of doubles is rounded to double. Some processors compute in a wider format.
constexpr bool quotients_are_doubles = FLT_EVAL_METHOD == 0 || FLT_EVAL_METHOD == 1;

// Each of these converts a text and stores it in its type's member of `out`, or returns false if
// the type rejects the text.

bool parse_bool(std::string_view text, Option::Value* out) {
  out->bool_value = text == "true";
  return out->bool_value || text == "false";
}

bool parse_int(std::string_view text, bool may_be_negative, Option::Value* out) {
  const bool negative = may_be_negative && !text.empty() && text.front() == '-';
  if (negative) text.remove_prefix(1);
  if (text.empty()) return false;

  // Larger magnitudes are not needed: this is one more than the largest int.
  constexpr std::int64_t limit = std::int64_t{std::numeric_limits<int>::max()} + 1;
  std::int64_t magnitude = 0;
  for (const char byte : text) {
    if (!is_digit(byte)) return false;
    magnitude = std::min(magnitude * 10 + (byte - '0'), limit);
  }
  out->int_value = static_cast<int>(negative ? -magnitude : std::min(magnitude, limit - 1));
  return true;
}

// The decimal point of strtod depends on the locale, so strtod gets a text without one: 3.25
// becomes 325e-2.
double convert_decimal(std::string_view text, std::size_t point, std::size_t fraction_length) {
  std::string digits(text.substr(0, point));
  if (fraction_length != 0) {
    text.remove_prefix(point + 1);
    digits.append(text).append("e-").append(std::to_string(fraction_length));
  }
  return std::strtod(digits.c_str(), nullptr);
}

bool parse_float(std::string_view text, Option::Value* out) {
  const std::size_t point = std::min(text.find('.'), text.size());
  const std::size_t digit_count = text.size() - (point < text.size() ? 1 : 0);
  if (digit_count == 0) return false;
  const bool is_exact = quotients_are_doubles && digit_count <= exact_digits;
  std::int64_t digits = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (i == point) continue;
    if (!is_digit(text[i])) return false;
    if (is_exact) digits = digits * 10 + (text[i] - '0');
  }
  const std::size_t fraction_length = digit_count - point;
  // Both operands are exact, so the quotient is the nearest double.
  const double value = is_exact ? static_cast<double>(digits) / powers_of_ten[fraction_length]
                                : convert_decimal(text, point, fraction_length);
  out->float_value = static_cast<float>(value);
  return true;
}

bool parse_enum(const std::string& text, const Option::EnumValues* values, Option::Value* out) {
  if (values == nullptr) return false;
  const auto found = values->find(text);
  if (found == values->end()) return false;
  out->int_value = found->second.first;
  return true;
}

// Converts a text of any type but OPT_STR. Returns false if the type rejects it.
bool parse_value(const Option& opt, const std::string& text, Option::Value* out) {
  switch (opt.type) {
    case OPT_BOOL:
      return parse_bool(text, out);
    case OPT_UINT:
    case OPT_INT:
      return parse_int(text, opt.type == OPT_INT, out);
    case OPT_FLOAT:
      return parse_float(text, out);
    case OPT_FLAG:
      return text.empty();
    case OPT_ENUM:
      return parse_enum(text, opt.enum_values.get(), out);
    case OPT_STR:
      break;
  }
  return false;
}

}  // namespace

char* duplicate(const char* bytes, std::size_t length) {
  auto* const buffer = static_cast<char*>(std::malloc(length + 1));
  if (buffer == nullptr) throw std::bad_alloc();
  std::memcpy(buffer, bytes, length);
  buffer[length] = '\0';
  return buffer;
}

bool handle_option(Option& opt, const std::string& text, int level) {
  const bool hold = opt.is_set && opt.level < level;
  if (opt.type == OPT_STR) {
    if (hold) return true;
    char* const buffer = duplicate(text.data(), text.size());
    std::free(opt.value.str_value);
    opt.value.str_value = buffer;
  } else {
    Option::Value value = {nullptr};
    if (!parse_value(opt, text, &value)) return false;
    if (hold) return true;
    opt.value = value;
  }
  opt.is_set = true;
  opt.level = level;
  return true;
}

}  // namespace norq
