#ifndef NORQ_TOOLS_COMPLETION_H
#define NORQ_TOOLS_COMPLETION_H

#include <iosfwd>
#include <string>

#include "norq/options/option_parser.h"

namespace norq {

/// The shells that `write_completion` serves: bash 4, zsh 5.1, fish 3, or later.
enum CompletionShell : int { COMPLETION_BASH, COMPLETION_ZSH, COMPLETION_FISH };

/// Writes a script that completes the arguments of the command `program`, and flushes `out`. Bash
/// and zsh users source it (`source <(greet -completion=zsh)`, in zsh after `compinit`), fish users
/// save it as "greet.fish" in a folder of completions. (The program registers such an option
/// itself.)
///
/// Completes options as the boolean style has them written; after '=' the values of enumerations
/// and booleans, and file names for an OPT_STR; file names in place of an argument that is not an
/// option. zsh and fish show the first lines of help texts, with spaces for control characters.
/// Options whose help text is "deprecated" are completed, too.
///
/// The shell executes no byte of a name, value or text. Left out are options that the command line
/// cannot reach, those under BOOL_STYLE_NO_PREFIX whose names start with "no_", and names and
/// values that are empty or have control characters.
///
/// Takes time in proportion to what it writes. Check `out`'s state for write failures. Writes
/// nothing if it throws, or if `shell` is none of the three.
void write_completion(const OptionParser& options, const std::string& program,
                      CompletionShell shell, std::ostream& out);

}  // namespace norq

#endif  // NORQ_TOOLS_COMPLETION_H
