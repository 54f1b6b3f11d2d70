#ifndef NORQ_TOOLS_ENVIRONMENT_H
#define NORQ_TOOLS_ENVIRONMENT_H

#include <string>

#include "norq/options/option_parser.h"

namespace norq {

/// Sets every option whose variable is in the environment, in registration order. The variable's
/// name is `prefix`, then the key with ASCII letters in upper case and '_' for every other byte
/// that is not an ASCII digit: "GREET_LOG_FILE" for the prefix "GREET_" and the key "log-file".
/// Several keys may share a variable. A prefix with '=' or a NUL byte finds no variable.
///
/// The values are those of `parse_option`; only an empty variable sets an OPT_FLAG.
///
/// Throws `Exception` "invalid environment variable NAME (REASON)" for the first value that is
/// rejected, with the text of the `error` as REASON. What was applied before that stays.
///
/// Sorts the options, and searches the environment once for each. No other thread may change the
/// environment meanwhile (`std::getenv`).
void parse_environment(OptionParser& options, const std::string& prefix, int level);

}  // namespace norq

#endif  // NORQ_TOOLS_ENVIRONMENT_H
