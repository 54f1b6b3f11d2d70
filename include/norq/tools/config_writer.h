#ifndef NORQ_TOOLS_CONFIG_WRITER_H
#define NORQ_TOOLS_CONFIG_WRITER_H

#include <iosfwd>
#include <string>
#include <vector>

#include "norq/options/option_parser.h"

namespace norq {

/// Writes a configuration file that restores the values of all options that are set, in
/// registration order, and flushes `out`. Comments show their help texts and, as "## GROUP", each
/// change of help group. `with_unset` adds the other options as comments that show what they accept
/// ("#width = INT", "#mode = fast|full").
///
/// Defaults (`set_default`) are written too. If several names share an enumeration code, the first
/// is written. A float is written without an exponent, with the fewest significant digits that norq
/// reads back as the same value.
///
/// Returns the keys, in registration order, of the options left out because no file can hold them:
/// keys and texts with a line feed or with white space at either end; keys that start with '#' or
/// contain '='; texts that end with a backslash; values that are not finite or that the option's
/// type rejects (only a program can store those, for example a negative OPT_UINT).
///
/// Sorts the options; apart from that, the time is proportional to the size of the output.
///
/// If a group's name has a line feed, no group names are written. Calls `print_help`, which may
/// name unnamed groups. Check `out`'s state for write failures. Writes nothing if it throws.
std::vector<std::string> write_config(const OptionParser& options, std::ostream& out,
                                      bool with_unset);

}  // namespace norq

#endif  // NORQ_TOOLS_CONFIG_WRITER_H
