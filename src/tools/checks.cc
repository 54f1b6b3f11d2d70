#include "norq/tools/checks.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>

namespace norq {

namespace {

// Reads the whole text as a number; false if it is not one. `*fits` is false if it overflows.
bool read(const std::string& text, std::int64_t* out, bool* fits) {
  if (text.find_first_not_of("0123456789+-") != std::string::npos) return false;
  char* end = nullptr;
  errno = 0;
  *out = std::strtoll(text.c_str(), &end, 10);
  *fits = errno != ERANGE;
  return end != text.c_str() && *end == '\0';
}

bool read(std::string text, double* out, bool* fits) {
  if (text.find_first_not_of("0123456789+-.eE") != std::string::npos) return false;
  const std::size_t point = text.find('.');
  if (point != std::string::npos) text.replace(point, 1, std::localeconv()->decimal_point);
  char* end = nullptr;
  *out = std::strtod(text.c_str(), &end);
  *fits = !std::isinf(*out);
  return end != text.c_str() && *end == '\0';
}

// The fewest digits that read back as the same number, in any locale.
template <class Number>
std::string to_text(Number number) {
  std::array<char, 32> buffer = {};  // NOLINT(readability-magic-numbers)
  std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  return buffer.data();
}

template <class Number>
OptionParser::error out_of_range(const std::string& key, const std::string& value, Number low,
                                 Number high) {
  return {"value out of range " + to_text(low) + " to " + to_text(high), key, value, ""};
}

template <class Number>
bool get_number(const OptionParser& options, const std::string& key, Number low, Number high,
                Number* out) {
  std::string text;
  if (!options.get_str_option(key, &text)) return false;
  Number number = 0;
  bool fits = false;
  if (!read(text, &number, &fits)) throw OptionParser::error("bad value for option", key, text, "");
  if (!fits || !(low <= number && number <= high)) throw out_of_range(key, text, low, high);
  *out = number;
  return true;
}

const Option* find_option(const OptionParser& options, const std::string& key) {
  const auto found = options.get_options().find(key);
  return found == options.get_options().end() ? nullptr : &found->second;
}

}  // namespace

bool get_int64_option(const OptionParser& options, const std::string& key, std::int64_t low,
                      std::int64_t high, std::int64_t* out) {
  return get_number(options, key, low, high, out);
}

bool get_double_option(const OptionParser& options, const std::string& key, double low, double high,
                       double* out) {
  return get_number(options, key, low, high, out);
}

void check_range(const OptionParser& options, const std::string& key, double low, double high) {
  float real = 0;
  if (options.get_float_option(key, &real)) {
    // A value such as 0.1 was rounded to the nearest float, so the bounds must be rounded too.
    if (static_cast<float>(low) <= real && real <= static_cast<float>(high)) return;
    throw out_of_range(key, to_text(real), low, high);
  }
  OptionType type = OPT_ENUM;
  int integer = 0;
  if (!options.has_option(key, &type) || type == OPT_ENUM) return;
  if (!options.get_int_option(key, &integer) || (low <= integer && integer <= high)) return;
  throw out_of_range(key, to_text(integer), low, high);
}

void require_options(const OptionParser& options, const std::vector<std::string>& keys) {
  for (const std::string& key : keys) {
    const Option* const option = find_option(options, key);
    if (option != nullptr && option->is_set) continue;
    throw Exception("required option is not set: ", true)
        << (option == nullptr ? key : option->name);
  }
}

void exclude_options(const OptionParser& options, const std::vector<std::string>& keys) {
  const Option* first = nullptr;
  for (const std::string& key : keys) {
    const Option* const option = find_option(options, key);
    if (option == nullptr || !option->is_set || option == first) continue;
    if (first != nullptr) {
      throw Exception("options exclude each other: ", true) << first->name << ", " << option->name;
    }
    first = option;
  }
}

}  // namespace norq
