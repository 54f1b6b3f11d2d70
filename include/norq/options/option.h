#ifndef NORQ_OPTIONS_OPTION_H
#define NORQ_OPTIONS_OPTION_H

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace norq {

/// The types of options, and the texts that each accepts as a value, without white space around
/// them. The numbers are part of the interface; help listings by type use their order.
///
/// Out-of-range integers saturate. Floats are rounded to the nearest `double`, and that `double` to
/// the nearest `float`, which may be zero or infinity.
enum OptionType : int {
  OPT_BOOL = 0,   ///< "true" or "false"
  OPT_UINT = 1,   ///< one or more decimal digits
  OPT_INT = 2,    ///< one or more decimal digits, optionally after a '-'
  OPT_FLOAT = 3,  ///< one or more decimal digits, with at most one '.' anywhere
  OPT_STR = 4,    ///< any text, even empty; kept up to its first NUL byte
  OPT_FLAG = 5,   ///< only the empty text: the option is either set or not set
  OPT_ENUM = 6,   ///< one of the option's registered value names
};

/// The record of one option. A record inside a parser belongs to the parser. A program may change
/// it through `OptionParser::get_option`; the next parse or help listing uses the change. Once a
/// record has a value, its `type` must not change and its `is_set` must stay true. Copies are deep.
class Option {
 public:
  /// The allowed value names of an enumeration, each with its code and its help text, in byte-wise
  /// order.
  using EnumValues = std::map<std::string, std::pair<int, std::string>>;

  /// The value last stored. `type` determines which member is in use.
  union Value {
    char* str_value;    ///< OPT_STR: NUL-terminated, from `malloc`, owned; null if there is none
    bool bool_value;    ///< OPT_BOOL
    int int_value;      ///< OPT_UINT, OPT_INT; OPT_ENUM: the code of the chosen value name
    float float_value;  ///< OPT_FLOAT
  };

  /// A placeholder of type OPT_UINT with empty texts.
  Option() noexcept = default;

  /// An option that is not set, with these values of `name`, `type`, `help`, `group` and `index`.
  Option(const std::string& option_name, OptionType option_type, const std::string& help_text,
         int help_group, int ordinal);

  /// Makes a deep copy.
  Option(const Option& other);

  /// Leaves the target unchanged if it throws `std::bad_alloc`. Self-assignment has no effect.
  Option& operator=(const Option& other);

  ~Option();

  /// Overwrites every field with a copy of the field of `other`; the copy constructor and the
  /// assignment use it. (`enum_values` is copied only from OPT_ENUM records.) The target must be a
  /// different record and must not own a string value, because its buffer is not released. Changes
  /// nothing if it throws `std::bad_alloc`.
  void copy_from(const Option& other);

  std::string name;            ///< used by the command line and the help listing
  OptionType type = OPT_UINT;  ///< which texts are accepted, which member of `value` is used
  std::string help;            ///< if exactly "deprecated", listed without a help text
  int group = 0;               ///< number of the help group, from 1; 0 for none
  bool is_set = false;         ///< whether a value has been stored
  int index = 0;               ///< 1 for the first option registered with a parser, then 2, ...
  int level = 0;               ///< the level of the stored value; 0 if there is none

  std::unique_ptr<EnumValues> enum_values;  ///< OPT_ENUM: null until a value name is registered
  Value value = {nullptr};                  ///< zero while not set
};

}  // namespace norq

#endif  // NORQ_OPTIONS_OPTION_H
