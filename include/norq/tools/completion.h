#ifndef NORQ_TOOLS_COMPLETION_H
#define NORQ_TOOLS_COMPLETION_H

#include <iosfwd>
#include <string>

#include "norq/options/option_parser.h"

namespace norq {

/// The shells that `write_completion` supports: bash 4, zsh 5.1, fish 3, or later.
enum CompletionShell : int { COMPLETION_BASH, COMPLETION_ZSH, COMPLETION_FISH };

/// Writes a script that completes the arguments of the command `program`, and flushes `out`. Bash
/// and zsh users source it (`source <(greet -completion=zsh)`, in zsh after `compinit`), fish users
/// save it as "greet.fish" in a completions folder. (The program itself must register an option
/// such as `-completion`.)
///
/// Completes options in the form that the boolean style requires; after '=', the values of
/// enumerations and booleans, and file names for an OPT_STR; positional arguments as file names.
/// zsh and fish show the first line of each help text, with control characters replaced by spaces.
/// Options whose help text is "deprecated" are also completed.
///
/// The shell never executes any part of a name, value or help text. The script omits options that
/// the command line cannot reach, options under BOOL_STYLE_NO_PREFIX whose names start with "no_",
/// and names and values that are empty or contain control characters.
///
/// Takes time proportional to its output. Check `out`'s state for write failures. Writes
/// nothing if it throws, or if `shell` is none of the three.
void write_completion(const OptionParser& options, const std::string& program,
                      CompletionShell shell, std::ostream& out);

}  // namespace norq

#endif  // NORQ_TOOLS_COMPLETION_H
