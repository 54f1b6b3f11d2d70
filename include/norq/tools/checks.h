#ifndef NORQ_TOOLS_CHECKS_H
#define NORQ_TOOLS_CHECKS_H

#include <cstdint>
#include <string>
#include <vector>

#include "norq/options/option_parser.h"

/// Checks to run after parsing. An option with a default (`set_default`) counts as set. The
/// library needs `std::to_chars` for floating-point numbers (libstdc++ 11, libc++ 14).
namespace norq {

///@{
/// Reads an OPT_STR option as a decimal number, whatever the locale: digits with an optional sign
/// and, for a double, an optional point and exponent. Returns false and writes nothing if `key` is
/// not registered, not set or of another type.
///
/// Throws `OptionParser::error`: "bad value for option" if the text is not such a number, or "value
/// out of range LOW to HIGH" if it overflows or is outside `low` to `high` (as is every number if
/// `low` > `high` or a bound is NaN). The error's name is `key`; `*out` is untouched.
bool get_int64_option(const OptionParser& options, const std::string& key, std::int64_t low,
                      std::int64_t high, std::int64_t* out);
bool get_double_option(const OptionParser& options, const std::string& key, double low, double high,
                       double* out);
///@}

/// Throws the same "value out of range LOW to HIGH" for the value of an OPT_INT, OPT_UINT or
/// OPT_FLOAT option. For an OPT_FLOAT, the bounds are rounded to `float`, like its value. Integers
/// outside `int` saturate, so only a bound strictly inside that range rejects them. Does nothing if
/// the option is not registered, not set or of another type.
void check_range(const OptionParser& options, const std::string& key, double low, double high);

/// Throws `Exception` "required option is not set: NAME" for the first key that is not set. NAME is
/// the display name, or the key if it is not registered.
void require_options(const OptionParser& options, const std::vector<std::string>& keys);

/// Throws `Exception` "options exclude each other: NAME, NAME" for the first two options that are
/// set, even by a default. Unregistered keys and repetitions of a key are ignored.
void exclude_options(const OptionParser& options, const std::vector<std::string>& keys);

}  // namespace norq

#endif  // NORQ_TOOLS_CHECKS_H
