#ifndef NORQ_OPTIONS_OPTION_PARSER_H
#define NORQ_OPTIONS_OPTION_PARSER_H

#include <iosfwd>
#include <string>
#include <vector>

#include "norq/options/option.h"
#include "norq/utils/exception.h"
#include "norq/utils/hash_table.h"

/// Options of command-line programs. Programs use `OptionParser`; its building blocks can also be
/// used on their own.
namespace norq {

/// How boolean options are written on the command line.
enum OptionBoolStyle : int {
  BOOL_STYLE_NO_PREFIX = 0,   ///< -name and -no_name
  BOOL_STYLE_PLUS_MINUS = 1,  ///< +name and -name; options of other types are +name=value
  BOOL_STYLE_VALUE = 2,       ///< -name=true and -name=false
};

/// The order of a help listing.
enum OptionPrintOrder : int {
  PRINT_ORDER_INDEX = 0,       ///< in registration order
  PRINT_ORDER_NAME = 1,        ///< by name, byte-wise
  PRINT_ORDER_TYPE_INDEX = 2,  ///< by type number, then in registration order
  PRINT_ORDER_TYPE_NAME = 3,   ///< by type number, then by name
  PRINT_ORDER_GROUP_NAME = 4,  ///< by help group, each under its heading, then by name
};

/// The layout of a help listing.
enum OptionPrintStyle : int {
  PRINT_STYLE_TAB = 0,       ///< entry, tab, unchanged help text: for other programs to read
  PRINT_STYLE_ALIGNED = 1,   ///< help texts in a column one space to the right of the widest entry
  PRINT_STYLE_INDENTED = 2,  ///< help texts below their entries, from column 10 on
};

/// The options of a program: registered once, set from any number of sources, read, and listed in
/// the help.
///
/// The parser owns its options. Options are found by key, except on the command line, which uses
/// the display name (the key, unless another name was given). The help listing also shows that
/// name. Keys and names are byte strings, compared byte for byte.
///
/// An option has no default: until a value is stored it is not set, and reading it leaves the
/// caller's variable unchanged. Each source has a level, any `int`. A value is never replaced by
/// one with a larger level; at equal levels the later value wins. A value that is not stored
/// because of its level is still checked.
///
/// Members that register or read report failure through their return value; only the three parsing
/// members throw an `Exception`. A member that allocates may throw `std::bad_alloc`, and
/// `std::length_error` for a string or vector longer than its `max_size()`; the parser is then
/// unchanged, except for settings that a parsing member has already applied. Lookups by key take
/// constant time on average.
///
/// Only one thread at a time may use a parser; parsers share nothing but the diagnostic hook. While
/// a member of a parser runs, nothing that it calls (a diagnostic hook, an output stream, an
/// `operator<<`) may call a member of the same parser.
class OptionParser {
 public:
  class error;

  ///@name Constructing
  ///@{

  /// A parser without options. If `pass_unknown_options` is true, command-line options with an
  /// unknown name are appended to the positional arguments; otherwise they are errors.
  OptionParser(OptionBoolStyle style, bool pass_unknown_options);
  OptionParser(const OptionParser&) = delete;             ///< parsers are not copied
  OptionParser& operator=(const OptionParser&) = delete;  ///< parsers are not copied

  /// Destroys the two group tables, then the options.
  ~OptionParser();

  /// Removes all options and help groups. Keeps the constructor's two settings and the sizes of the
  /// tables, which determine their iteration order.
  void reset() noexcept;

  ///@}
  ///@name Registering
  ///@{

  /// Selects the help group of the options registered from now on, and creates it if it is new.
  /// Groups are numbered from 1 and listed in the order of their creation, after the options
  /// registered before the first group. Any text is a valid name.
  void set_cur_help_group(const std::string& group);

  /// Registers an option under `key`, in the current help group. Returns false, and changes
  /// nothing, if `key` is registered already.
  bool add_option(const std::string& key, OptionType type, const std::string& help);

  /// Registers an option with a separate display name. If several options have the same name, the
  /// command line sets the one that comes first in the table's iteration order.
  bool add_option(const std::string& key, const std::string& name, OptionType type,
                  const std::string& help);

  /// Adds an allowed value to an OPT_ENUM option. `get_int_option` reads its `code`; several values
  /// may share a code. Returns false, and changes nothing, if `key` is not registered, has another
  /// type, or already has a value with this name.
  bool add_enum_value(const std::string& key, const std::string& value_name, int code,
                      const std::string& help);

  /// Removes an option; false if `key` is not registered. Indices are not reused.
  bool del_option(const std::string& key) noexcept;

  /// Replaces an option's help text; false if `key` is not registered.
  bool set_option_help(const std::string& key, const std::string& help);

  ///@}
  ///@name Setting
  ///@{

  /// Applies an argument vector: `argc` NUL-terminated strings. Element 0, the program's name, is
  /// skipped. An argument that starts with '-' (under BOOL_STYLE_PLUS_MINUS also with '+') is an
  /// option: the sign, the name and, after the first '=', the value. Copies of all other arguments
  /// are appended to `remaining` in order. No argument ends the options, and a value is never taken
  /// from the next argument.
  ///
  /// Under BOOL_STYLE_NO_PREFIX "no_" after the sign is removed and switches a boolean off; a
  /// boolean whose name starts with "no_" can only be switched off, with "-no_no_" and the rest of
  /// its name. Under BOOL_STYLE_PLUS_MINUS '-' switches off. Only booleans can be switched off.
  /// Under BOOL_STYLE_VALUE a boolean's value may be in any letter case. Takes time proportional to
  /// the total length of the arguments, plus one pass over all options and buckets of the table if
  /// any argument is an option.
  ///
  /// Throws `error` "unknown option" if no option has that name (unless the parser passes such
  /// arguments on to `remaining`), and "bad option format" if the form does not match the option's
  /// type or the type rejects the value (under BOOL_STYLE_VALUE the error contains a boolean's
  /// value in lower case). Settings applied and arguments appended before the error stay.
  void parse_args(int argc, const char* const* argv, std::vector<std::string>& remaining,
                  int level);

  /// Applies a file of lines `key = value`. White space at both ends of a line, key and value is
  /// removed; blank lines and lines that start with '#' are skipped; a line that ends with a
  /// backslash continues on the next, joined by one space. Values are not changed otherwise.
  ///
  /// Throws `Exception` "unable to open config file: FILE", "invalid line N in config file: FILE"
  /// for a statement without '=', and the same followed by " (REASON)" if `parse_option` rejects
  /// the statement or memory runs out. N is the number of the statement's last line, or of the
  /// file's last line if the file ends first. None of these exceptions is an `error`. Settings
  /// applied before the exception stay.
  ///
  /// REASON stops at the first NUL byte of a key or value. Running out of memory while opening the
  /// file counts as a file that cannot be opened. A read error ends the file: an unfinished
  /// statement is applied with the lines read so far. A line longer than `std::string::max_size()`
  /// (1 GB with 32-bit libstdc++) throws `std::length_error`.
  void parse_config_file(const std::string& file_name, int level);

  /// Sets one option. Throws `error` "unknown option" if `key` is not registered and "bad value for
  /// option" if its type rejects `value`, whatever the level; the option is then unchanged.
  void parse_option(const std::string& key, const std::string& value, int level);

  ///@}
  ///@name Reading
  ///@{

  /// All options by key, in the table's iteration order. Valid for the lifetime of the parser.
  const hsh::HashMap<std::string, Option>& get_options() const noexcept { return options; }

  /// How boolean options are written on the command line.
  OptionBoolStyle get_bool_style() const noexcept { return bool_style; }

  /// Whether `key` is registered. If so, writes its type through `type`, which may be null.
  bool has_option(const std::string& key, OptionType* type) const noexcept;

  /// The record of `key`, or null. Valid until the option is removed or the parser is destroyed.
  Option* get_option(const std::string& key) noexcept;

  /// The help text of `key`, or an empty string. Valid until its help text is changed or the option
  /// is destroyed.
  const std::string& get_option_help(const std::string& key) const noexcept;

  /// Adds to `out` the keys of all options that are set. If it throws, `out` is unchanged.
  void get_options_set(hsh::HashSet<std::string>& out) const;

  /// Writes the value of an OPT_BOOL through `out`. This and the next three members return false,
  /// and write nothing, if `key` is not registered, not set, or of another type.
  bool get_bool_option(const std::string& key, bool* out) const noexcept;
  /// Writes the value of an OPT_UINT or OPT_INT, or the code of an OPT_ENUM, through `out`.
  bool get_int_option(const std::string& key, int* out) const noexcept;
  /// Writes the value of an OPT_FLOAT through `out`.
  bool get_float_option(const std::string& key, float* out) const noexcept;
  /// Writes the value of an OPT_STR, up to its first NUL byte, through `out`.
  bool get_str_option(const std::string& key, std::string* out) const;

  /// Whether `key` is registered and set, whatever its type: true even for a boolean that is false.
  bool get_flag_option(const std::string& key) const noexcept;

  ///@}
  ///@name Printing
  ///@{

  /// Writes `heading` and a line feed (unless `heading` is empty) and then all options to `out`,
  /// and flushes `out`. Check `out`'s state for write failures. Visits all options and buckets of
  /// the table, and sorts n options with O(n log n) comparisons; the option table and `sort`
  /// determine the order of options that compare equal.
  ///
  /// An option's entry is " -NAME" (with a minus even under BOOL_STYLE_PLUS_MINUS, where users
  /// write +NAME), followed by "=INT", "=FLOAT", "=STR" or "=ENUM" unless it is an OPT_FLAG. The
  /// entry of an OPT_BOOL is " -[no_]NAME", " (+|-)NAME" or " -NAME=BOOL", depending on the boolean
  /// style. The help text follows. For an OPT_ENUM it ends with a line "Possible values:" and one
  /// line "- VALUE : HELP" for each value name. A text that is exactly "deprecated" is not printed.
  ///
  /// Unless the style is PRINT_STYLE_TAB, help texts are split at line feeds, and lines that do not
  /// fit into 80 columns are wrapped: every white-space byte ends a word, every word is followed by
  /// a space, and no word is broken. If the widest entry has 79 bytes or more, PRINT_STYLE_ALIGNED
  /// wraps nothing.
  ///
  /// If the order is PRINT_ORDER_GROUP_NAME, a line with the group's name precedes its options, and
  /// an empty line separates groups; options without a group come first, under an empty name.
  /// Changes no option, but adds an empty name for a group number that has no name.
  void print_help(std::ostream& out, const std::string& heading, OptionPrintOrder order,
                  OptionPrintStyle style);

  ///@}

 private:
  const Option* find_option(const std::string& key) const noexcept;
  Option* find_option(const std::string& key) noexcept;
  void split_option(const std::string& argument, std::string* name, std::string* value,
                    std::string* prefix) const;

  hsh::HashMap<std::string, Option> options;  // by key
  OptionBoolStyle bool_style;
  bool pass_unknown;
  int option_counter = 0;                           // the last index used
  hsh::HashMap<std::string, int> help_group_ids;    // number by name
  hsh::HashMap<int, std::string> help_group_names;  // name by number
  int help_group_counter = 0;                       // the last number used
  int cur_help_group = 0;                           // 0: none
};

/// A rejected setting. `what()` is "MESSAGE: NAME, value: VALUE", followed, if the setting came
/// from the command line, by ", command-line: ARGUMENT".
///
/// `operator<<` returns an `Exception&`, so throwing its result loses the derived type: build the
/// object first, then throw it.
class OptionParser::error : public Exception {
 public:
  /// Calls the diagnostic hook with `message` alone, then completes the text. Copies its arguments.
  error(const std::string& message, const std::string& option_name, const std::string& value_text,
        const std::string& argument);
  error(const error&) = default;  ///< does not call the hook again
  error& operator=(const error&) = delete;
  ~error() override;

  std::string name;          ///< the option's name or key, as it was given
  std::string value;         ///< the value text
  std::string command_line;  ///< the whole argument, or empty
};

}  // namespace norq

#endif  // NORQ_OPTIONS_OPTION_PARSER_H
