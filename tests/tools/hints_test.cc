#include "norq/tools/hints.h"

#include "../support.h"

namespace norq {

// The hint on an argument, a key with the value "?", or a reason in parentheses.
std::string hint(OptionParser& options, const std::string& written) {
  Strings rest;
  try {
    if (written[0] == '(') throw Exception("invalid line " + written, false);
    if (written[0] != '-') options.parse_option(written, "?", 0);
    parse_args(options, {written}, &rest);
  } catch (const Exception& error) {
    return explain(options, error).substr(std::string(error.what()).size());
  }
  return "accepted";
}

TEST(Hints, ShowHowToWriteAnOption) {
  const std::string long_name(65, 'x');
  constexpr OptionBoolStyle no_prefix = BOOL_STYLE_NO_PREFIX;
  constexpr OptionBoolStyle plus_minus = BOOL_STYLE_PLUS_MINUS;
  const std::tuple<OptionBoolStyle, std::string, std::string> rows[] = {
      {no_prefix, "--no_verbos", " (did you mean -no_verbose?)"},
      {no_prefix, "-verbose=1", " (write -verbose or -no_verbose)"},
      {no_prefix, "-no_text=x", " (write -text=STR)"},
      {no_prefix, "-mode", " (write -mode=ENUM, one of: fast, full)"},
      {no_prefix, "-mode=x", " (-mode takes one of: fast, full)"},
      {no_prefix, "-no_made_up", ""},
      {no_prefix, "-made_u", ""},
      {plus_minus, "--verbose", " (did you mean +verbose?)"},
      {plus_minus, "-verbos", " (did you mean -verbose?)"},
      {plus_minus, "-size=3", " (write +size=INT)"},
      {no_prefix, "verbose", " (verbose takes true or false)"},
      {no_prefix, "count", " (count takes an integer, such as -7)"},
      {no_prefix, "(unknown option: szie, value: )", " (did you mean size?)"},
      {no_prefix, "(unknown option: szie", ""},
      {no_prefix, "(bad value for option: dump, value:  (unknown option: )", " (write dump=)"},
      {no_prefix, "(bad value for option: a, value: b, value: ?)", " (write a, value: b=)"},
      {no_prefix, "-vrebsoe", " (did you mean -verbose?)"},
      {no_prefix, "-verboeXs", ""},  // swapped bytes are not edited again
      {no_prefix, "-serbo", ""},
      {no_prefix, "-aba", ""},
      {no_prefix, "-ac", ""},
      {no_prefix, "-xm", " (did you mean -x?)"},
      {no_prefix, "-m", ""},
      {no_prefix, "-xsort", " (did you mean -sort or -a_sort or -b_sort?)"},
      {no_prefix, "-eimport=", " (did you mean -import or -export?)"},
      {no_prefix, "-cmopresino", " (did you mean -compression?)"},
      {no_prefix, "-compressionXXXX", ""},
      {no_prefix, "-" + long_name.substr(1), " (did you mean -" + long_name + "?)"},
      {no_prefix, "-x" + long_name, ""},
  };
  for (const auto& [style, written, expected] : rows) {
    SampleParser options(style);
    options.add_enum_value("mode", "full", 0, "");
    options.add_option("key", "text", OPT_STR, "");
    options.add_option("made_up", OptionType(9), "");
    for (const std::string& key :
         Strings{"a, value: b", "x", "bab", "bcc", "sort", "a_sort", "b_sort", "c_sort", "d_sort",
                 "import", "export", "compression", long_name}) {
      options.add_option(key, OPT_FLAG, "");
    }
    EXPECT_EQ(hint(options, written), expected) << style << ' ' << written;
  }
}

}  // namespace norq
