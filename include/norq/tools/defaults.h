#ifndef NORQ_TOOLS_DEFAULTS_H
#define NORQ_TOOLS_DEFAULTS_H

#include <string>

#include "norq/options/option_parser.h"

namespace norq {

/// Call this after registering the option and before reading any source.
///
/// Sets the option at the level INT_MAX, so that every other source replaces the value, and appends
/// "(default: VALUE)", with `value` unchanged, to its help text unless that is "deprecated".
/// Returns false and changes nothing if `key` is not registered or the option is set already.
/// Throws the same `OptionParser::error` as `parse_option` if the type rejects `value`, or
/// `std::bad_alloc`; the option and its help text then stay unchanged.
bool set_default(OptionParser& options, const std::string& key, const std::string& value);

/// Whether `key` is registered and set at a level below INT_MAX, so not just by a default.
bool is_given(const OptionParser& options, const std::string& key);

}  // namespace norq

#endif  // NORQ_TOOLS_DEFAULTS_H
