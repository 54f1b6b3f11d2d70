#ifndef NORQ_TOOLS_HINTS_H
#define NORQ_TOOLS_HINTS_H

#include <string>

#include "norq/options/option_parser.h"

namespace norq {

/// Returns the text of an error, followed by a hint in parentheses if there is something to add.
/// `options` threw the error: an `OptionParser::error`, or an `Exception` whose text ends with the
/// text of `parse_option`'s in parentheses, such as those of `parse_config_file`. The hint is about
/// the options that are registered now.
///
/// After an unknown name: "did you mean -width=INT?", or without sign and type for a key. At most
/// three names, nearest first, then byte-wise. Inserting, deleting or replacing a byte and
/// exchanging two neighbours are one edit each; no byte is edited twice. A third of the longer
/// name's bytes may be edited, but at least one (of two or more) and at most three. "--name" is
/// read as "-name". A name of more than 64 bytes gets no hint. After a rejected value: "-mode takes
/// one of: fast, full". If it is missing or the form does not suit the type: "write -count=INT".
/// There are no hints on options whose type is none of `OptionType`'s.
///
/// Passes over all options; for 10,000 options with usual names that takes at most ten times as
/// long as parsing one argument. Throws `std::bad_alloc`; returns "" if `what()` runs out of
/// memory.
std::string explain(const OptionParser& options, const Exception& refusal);

}  // namespace norq

#endif  // NORQ_TOOLS_HINTS_H
