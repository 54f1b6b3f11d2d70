#ifndef NORQ_OPTIONS_HANDLE_OPTION_H
#define NORQ_OPTIONS_HANDLE_OPTION_H

#include <string>

#include "norq/options/option.h"

namespace norq {

/// The one way by which a value, whatever its source, gets into a record.
///
/// Returns whether `text` is acceptable for the kind of `opt`; if not, nothing changes. If so, the
/// value is stored, unless the record holds one that came with a smaller level: then the text is
/// only checked. What texts each kind accepts, and what becomes of numbers out of range, stands at
/// `OptionType`. Throws nothing but `std::bad_alloc`, and then changes nothing.
bool handle_option(Option& opt, const std::string& text, int level);

}  // namespace norq

#endif  // NORQ_OPTIONS_HANDLE_OPTION_H
