#ifndef NORQ_TOOLS_TRY_PARSE_H
#define NORQ_TOOLS_TRY_PARSE_H

#include <string>
#include <vector>

#include "norq/options/option_parser.h"

/// Parsing for programs that are built without exceptions. (norq itself must be built with them.)
namespace norq {

///@{
/// Call `OptionParser::parse_args` and `OptionParser::parse_config_file`, and return true. If those
/// throw any exception, return false and store its `what()` in `*message`; `message` may be null.
/// If that runs out of memory, `*message` becomes empty. Everything applied and appended before the
/// failure stays. On success, `*message` is unchanged.
bool try_parse_args(OptionParser& options, int argc, const char* const* argv,
                    std::vector<std::string>& remaining, int level, std::string* message) noexcept;
bool try_parse_config_file(OptionParser& options, const std::string& file_name, int level,
                           std::string* message) noexcept;
///@}

}  // namespace norq

#endif  // NORQ_TOOLS_TRY_PARSE_H
