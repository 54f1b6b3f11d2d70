#ifndef NORQ_TOOLS_ENVIRONMENT_H
#define NORQ_TOOLS_ENVIRONMENT_H

#include <string>

#include "norq/options/option_parser.h"

namespace norq {

/// Sets every option whose variable is in the environment, in registration order. The variable's
/// name is `prefix` plus the key with ASCII letters in upper case and '_' for every other byte
/// that is not an ASCII digit: "GREET_LOG_FILE" for the prefix "GREET_" and the key "log-file".
/// Several keys may share a variable. A prefix with '=' or a NUL byte matches no variable.
///
/// Variables accept the same values as `parse_option`; an OPT_FLAG accepts only an empty one.
///
/// Throws `Exception` "invalid environment variable NAME (REASON)" for the first value that is
/// rejected, with the text of the `error` as REASON. Values applied before that stay.
///
/// Sorts the options and searches the environment once for each option. No other thread may change
/// the environment during the call (it uses `std::getenv`).
void parse_environment(OptionParser& options, const std::string& prefix, int level);

}  // namespace norq

#endif  // NORQ_TOOLS_ENVIRONMENT_H
