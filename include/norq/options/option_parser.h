#ifndef NORQ_OPTIONS_OPTION_PARSER_H
#define NORQ_OPTIONS_OPTION_PARSER_H

#include <iosfwd>
#include <string>
#include <vector>

#include "norq/options/option.h"
#include "norq/utils/exception.h"
#include "norq/utils/hash_table.h"

/// Options of command-line programs. A host needs `OptionParser`; its building blocks can be used
/// alone.
namespace norq {

/// How boolean options are written on the command line.
enum OptionBoolStyle : int {
  BOOL_STYLE_NO_PREFIX = 0,   ///< -name and -no_name
  BOOL_STYLE_PLUS_MINUS = 1,  ///< +name and -name; options of other types are +name=value
  BOOL_STYLE_VALUE = 2,       ///< -name=true and -name=false
};

/// The order of a help listing.
enum OptionPrintOrder : int {
  PRINT_ORDER_INDEX = 0,       ///< by registration
  PRINT_ORDER_NAME = 1,        ///< by name, byte-wise
  PRINT_ORDER_TYPE_INDEX = 2,  ///< by type number, then by registration
  PRINT_ORDER_TYPE_NAME = 3,   ///< by type number, then by name
  PRINT_ORDER_GROUP_NAME = 4,  ///< by help group, each under its heading, then by name
};

/// The layout of a help listing.
enum OptionPrintStyle : int {
  PRINT_STYLE_TAB = 0,       ///< entry, tab, unchanged help text: for other programs to read
  PRINT_STYLE_ALIGNED = 1,   ///< help texts in a column one space to the right of the widest entry
  PRINT_STYLE_INDENTED = 2,  ///< help texts below their entries, from column 10 on
};

/// The options of a program: registered once, set from any number of sources, read back, listed.
///
/// The parser owns its options. Options are found by key, except on the command line, which uses
/// the display name (the key, unless another was given); the help listing shows that name, too.
/// Keys and names are byte strings, compared byte for byte.
///
/// An option has no default: until a value is stored it is not set, and reading it leaves the
/// host's variable unchanged. Each source has a level, any `int`. A value is never replaced by one
/// with a larger level; at equal levels the later value wins. A value that is not stored because of
/// its level is still checked.
///
/// Registering and reading report failure by their result; only the three parsing members throw an
/// `Exception`. A member that allocates may throw `std::bad_alloc`, and `std::length_error` for a
/// string or vector longer than its `max_size()`; the parser is then unchanged, except for settings
/// that a parsing member had already applied. Lookups by key take constant time on average.
///
/// One thread at a time may use a parser; parsers share no state. While a member of a parser runs,
/// nothing that it calls (a diagnostic hook, an output stream, an `operator<<`) may call a member
/// of the same parser.
class OptionParser {
 public:
  class error;

  ///@name Construct
  ///@{

  /// A parser without options. If `pass_unknown_options` is true, command-line options with an
  /// unknown name are returned with the positional arguments; otherwise they are errors.
  OptionParser(OptionBoolStyle style, bool pass_unknown_options);
  OptionParser(const OptionParser&) = delete;             ///< parsers are not copied
  OptionParser& operator=(const OptionParser&) = delete;  ///< parsers are not copied

  /// Destroys the two group tables, then the options.
  ~OptionParser();

  /// Removes all options and help groups. Keeps the constructor's two settings and the sizes of the
  /// tables, which determine their iteration order.
  void reset() noexcept;

  ///@}
  ///@name Register
  ///@{

  /// Selects the help group of the options registered from now on, and creates it if it is new.
  /// Groups are numbered from 1 and listed in the order of their creation, after the options
  /// registered before the first group. Any text is a name.
  void set_cur_help_group(const std::string& group);

  /// Registers an option under `key`, in the current help group. Returns false, and changes
  /// nothing, if `key` is registered already.
  bool add_option(const std::string& key, OptionType type, const std::string& help);

  /// Registers an option with a display name of its own. If several options have the same name, the
  /// command line sets the one that comes first in the table's iteration order.
  bool add_option(const std::string& key, const std::string& name, OptionType type,
                  const std::string& help);

  /// Adds an allowed value to an OPT_ENUM option. `get_int_option` reads its `code`, which
  /// several values may share. Returns false, and changes nothing, if `key` is not registered or of
  /// another type, or has a value of this name already.
  bool add_enum_value(const std::string& key, const std::string& value_name, int code,
                      const std::string& help);

  /// Removes an option; false if `key` is not registered. Indices are not reused.
  bool del_option(const std::string& key) noexcept;

  /// Replaces an option's help text; false if `key` is not registered.
  bool set_option_help(const std::string& key, const std::string& help);

  ///@}
  ///@name Set
  ///@{

  /// Applies an argument vector: `argc` NUL-terminated strings, of which element 0, the program's
  /// name, is skipped. An argument that starts with '-' (under BOOL_STYLE_PLUS_MINUS also with '+')
  /// is an option: the sign, the name and, after the first '=', the value. All others are appended
  /// to `remaining` in their order, as copies. No argument ends the options, and a value is never
  /// taken from the next argument.
  ///
  /// Under BOOL_STYLE_NO_PREFIX "no_" after the sign is removed and switches a boolean off; one
  /// whose own name starts with "no_" can only be switched off, by "-no_no_" and the rest. Under
  /// BOOL_STYLE_PLUS_MINUS '-' switches off. Only booleans can be switched off. Under
  /// BOOL_STYLE_VALUE a boolean's value may be in any letter case. Takes time in proportion to the
  /// lengths of the arguments, plus one pass over all options and buckets of the table if there is
  /// an option among the arguments.
  ///
  /// Throws `error` "unknown option" if no option has that name (unless the parser passes such
  /// arguments on to `remaining`), and "bad option format" if the form does not suit the option's
  /// type or the type rejects the value (under BOOL_STYLE_VALUE the error has a boolean's value in
  /// lower case). What was applied and appended before that stays.
  void parse_args(int argc, const char* const* argv, std::vector<std::string>& remaining,
                  int level);

  /// Applies a file of lines `key = value`. White space at both ends of a line, key and value is
  /// dropped; blank lines and lines that start with '#' are skipped; a line that ends with a
  /// backslash continues on the next, joined by one space. Values are not changed otherwise.
  ///
  /// Throws `Exception` "unable to open config file: FILE", "invalid line N in config file: FILE"
  /// for a statement without '=', and the same followed by " (REASON)" for one that `parse_option`
  /// rejects, or that does not fit into memory. N is the number of the statement's last line, or of
  /// the file's last line if the file ends first. None of these is an `error`. What was applied
  /// before that stays.
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
  ///@name Read
  ///@{

  /// All options by key, in the table's iteration order. Valid as long as the parser.
  const hsh::HashMap<std::string, Option>& get_options() const noexcept { return options; }

  /// How boolean options are written on the command line.
  OptionBoolStyle get_bool_style() const noexcept { return bool_style; }

  /// Whether `key` is registered. If so, writes its type through `type`, which may be null.
  bool has_option(const std::string& key, OptionType* type) const noexcept;

  /// The record of `key`, or null. Valid until the option is removed or the parser is destroyed.
  Option* get_option(const std::string& key) noexcept;

  /// The help text of `key`, or an empty string. Valid as long as the option, and until its help
  /// text is changed.
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

  /// Whether `key` is registered and set, whatever its type: also for a boolean that is false.
  bool get_flag_option(const std::string& key) const noexcept;

  ///@}
  ///@name Print
  ///@{

  /// Writes `heading` and a line feed, unless it is empty, and then all options to `out`, and
  /// flushes it. Check `out`'s state for write failures. Visits all options and buckets of the
  /// table, and sorts n options with O(n log n) comparisons; options that compare equal are ordered
  /// by the option table and `sort`.
  ///
  /// An option's entry is " -NAME" (with a minus even under BOOL_STYLE_PLUS_MINUS, where users
  /// write +NAME), followed by "=INT", "=FLOAT", "=STR" or "=ENUM" unless it is an OPT_FLAG; that
  /// of an OPT_BOOL is " -[no_]NAME", " (+|-)NAME" or " -NAME=BOOL", by boolean style. Then comes
  /// the help text, for an OPT_ENUM with a line "Possible values:" and one line "- VALUE : HELP"
  /// for each value name. A text that is exactly "deprecated" is not printed.
  ///
  /// Unless the style is PRINT_STYLE_TAB, help texts are cut at line feeds, and lines that do not
  /// fit into 80 columns are wrapped: every white-space byte ends a word, every word is followed by
  /// a space, and none is broken. If the widest entry has 79 bytes or more, PRINT_STYLE_ALIGNED
  /// wraps nothing.
  ///
  /// By group, a line with the group's name precedes its options, and an empty line separates
  /// groups; options without a group come first, under an empty name. Changes no option, but a
  /// group number without a name gets an empty one.
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
