#ifndef NORQ_TOOLS_HINTS_H
#define NORQ_TOOLS_HINTS_H

#include <string>

#include "norq/options/option_parser.h"

namespace norq {

/// Returns the text of an error, followed by a hint in parentheses if norq has one. The error must
/// come from `options`: an `OptionParser::error`, or an `Exception` whose text ends with the text
/// of a `parse_option` error in parentheses, such as those of `parse_config_file`. The hint is
/// based on the options that are currently registered.
///
/// For an unknown name: "did you mean -width=INT?"; for an unknown key, without the sign and type.
/// At most three names, ordered by edit distance, then byte-wise. Inserting, deleting or replacing
/// a byte, or swapping two adjacent bytes, is one edit; no byte is edited twice. The limit is a
/// third of the longer name's bytes, but at least one (if it has two or more) and at most three.
/// "--name" is read as "-name". A name of more than 64 bytes gets no hint. For a rejected value:
/// "-mode takes one of: fast, full". If the value is missing or the form does not suit the type:
/// "write -count=INT". Options whose type is not an `OptionType` enumerator get no hint.
///
/// Visits all options; for 10,000 options with typical names, this takes at most ten times as long
/// as parsing one argument. Throws `std::bad_alloc`; returns "" if `what()` runs out of
/// memory.
std::string explain(const OptionParser& options, const Exception& refusal);

}  // namespace norq

#endif  // NORQ_TOOLS_HINTS_H
