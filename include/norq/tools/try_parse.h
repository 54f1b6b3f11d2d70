#ifndef NORQ_TOOLS_TRY_PARSE_H
#define NORQ_TOOLS_TRY_PARSE_H

#include <string>
#include <vector>

#include "norq/options/option_parser.h"

/// Parsing for hosts that are built without exceptions. (norq itself must be built with them.)
namespace norq {

///@{
/// Do what `OptionParser::parse_args` and `OptionParser::parse_config_file` do, and return true.
/// Where those throw, whatever it is, return false and write the exception's `what()` through
/// `message`, which may be null. If there is no memory for that, `*message` becomes empty. What was
/// applied and appended before the failure stays. On success `*message` is not touched.
bool try_parse_args(OptionParser& options, int argc, const char* const* argv,
                    std::vector<std::string>& remaining, int level, std::string* message) noexcept;
bool try_parse_config_file(OptionParser& options, const std::string& file_name, int level,
                           std::string* message) noexcept;
///@}

}  // namespace norq

#endif  // NORQ_TOOLS_TRY_PARSE_H
