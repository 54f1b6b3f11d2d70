#ifndef NORQ_OPTIONS_HANDLE_OPTION_H
#define NORQ_OPTIONS_HANDLE_OPTION_H

#include <string>

#include "norq/options/option.h"

namespace norq {

/// The one way by which a value, whatever its source, gets into a record.
///
/// Returns whether `text` is acceptable for the kind of `opt`; if not, nothing changes. If so, the
/// value is stored, unless the record holds one that came with a smaller level: then the text is
/// only checked. Throws nothing but `std::bad_alloc`, and then changes nothing.
///
/// Integers beyond the range of int saturate to its ends. Floats round to the nearest double and
/// from there to the nearest float, which may be zero or infinity.
bool handle_option(Option& opt, const std::string& text, int level);

}  // namespace norq

#endif  // NORQ_OPTIONS_HANDLE_OPTION_H
