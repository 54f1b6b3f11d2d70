#ifndef NORQ_OPTIONS_HANDLE_OPTION_H
#define NORQ_OPTIONS_HANDLE_OPTION_H

#include <cstddef>
#include <string>

#include "norq/options/option.h"

namespace norq {

/// Stores a value in a record. Every source of values calls it.
///
/// Returns whether the type of `opt` accepts `text` (see `OptionType`); if not, changes nothing. An
/// accepted value is stored unless the record has a value from a smaller level. Throws only
/// `std::bad_alloc`, and then changes nothing.
bool handle_option(Option& opt, const std::string& text, int level);

/// Returns a NUL-terminated copy in a buffer from `malloc`, which the caller owns. Records store
/// strings in this form. Throws `std::bad_alloc`.
char* duplicate(const char* bytes, std::size_t length);

}  // namespace norq

#endif  // NORQ_OPTIONS_HANDLE_OPTION_H
