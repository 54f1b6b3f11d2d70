#include <sstream>

#include "../support.h"

namespace norq {

TEST(HelpPrinter, ListsByGroupWithIndentedTexts) {
  OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
  parser.add_option("verbosity", OPT_UINT, "Verbosity level of the diagnostic output.");
  parser.set_cur_help_group("Search");
  parser.add_option("restarts", OPT_BOOL, "Enable restarts.");
  parser.add_option("strategy", OPT_ENUM, "Search strategy.");
  parser.add_enum_value("strategy", "full", 1, "complete, slower");
  parser.add_enum_value("strategy", "fast", 2, "quick, incomplete");
  parser.add_option("time_limit", OPT_FLOAT,
                    "Stop after this many seconds; a value of zero or below means that no limit "
                    "applies to the search at all.");
  parser.add_option("old_seed", OPT_INT, "deprecated");
  EXPECT_EQ(help_of(parser, PRINT_ORDER_GROUP_NAME, PRINT_STYLE_INDENTED, "Options:"), R"(Options:

 -verbosity=INT
          Verbosity level of the diagnostic output.

Search
 -old_seed=INT
 -[no_]restarts
          Enable restarts.
 -strategy=ENUM
          Search strategy.
          Possible values:
          - fast : quick, incomplete
          - full : complete, slower
 -time_limit=FLOAT
          Stop after this many seconds; a value of zero or below means that no 
          limit applies to the search at all. 
)");
}

TEST(HelpPrinter, Orders) {
  OptionParser parser(BOOL_STYLE_PLUS_MINUS, false);
  parser.add_option("f", OPT_STR, "a\nb");
  parser.add_option("G", OPT_INT, "");
  parser.add_option("d", OPT_BOOL, "deprecated");
  parser.add_option("B", OPT_STR, "Deprecated");
  parser.add_option("c", OPT_ENUM, "deprecated");
  parser.add_enum_value("c", "value", 1, "");
  parser.get_option("c")->type = OptionType(7);
  parser.add_option("a", OPT_BOOL, "deprecated");
  const std::string f = " -f=STR\ta\nb\n", G = " -G=INT\t\n", d = " (+|-)d\n",
                    B = " -B=STR\tDeprecated\n", c = " -c\n", a = " (+|-)a\n";
  EXPECT_EQ(help_of(parser, PRINT_ORDER_INDEX, PRINT_STYLE_TAB), f + G + d + B + c + a);
  EXPECT_EQ(help_of(parser, PRINT_ORDER_NAME, PRINT_STYLE_TAB), B + G + a + c + d + f);
  EXPECT_EQ(help_of(parser, PRINT_ORDER_TYPE_INDEX, PRINT_STYLE_TAB), d + a + G + f + B + c);
  EXPECT_EQ(help_of(parser, PRINT_ORDER_TYPE_NAME, PRINT_STYLE_TAB), a + d + G + B + f + c);
}

// The help text as it is listed in a column of this width.
Strings lines_of(const std::string& help, std::size_t width) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  parser.add_option(std::string(72 - width, 'n'), OPT_BOOL, help);  // " -nnn=BOOL"
  std::istringstream listing(help_of(parser, PRINT_ORDER_NAME, PRINT_STYLE_ALIGNED));
  Strings lines;
  for (std::string line; std::getline(listing, line);) lines.push_back(line.substr(80 - width));
  return lines;
}

TEST(HelpPrinter, FillsLinesToTheWidth) {
  EXPECT_EQ(lines_of("\ta  b\v cd ", 10), (Strings{"\ta  b\v cd "}));
  EXPECT_EQ(lines_of("\n\na\n", 10), (Strings{"", "", "a", ""}));
  EXPECT_EQ(lines_of("aaaaa bbbb c", 10), (Strings{"aaaaa ", "bbbb c "}));
  EXPECT_EQ(lines_of("aaaaa bbb c", 10), (Strings{"aaaaa bbb ", "c "}));
  EXPECT_EQ(lines_of("aaaaaaaaa b", 10), (Strings{"aaaaaaaaa ", "b "}));
  EXPECT_EQ(lines_of("aaaaaaaaaa bb c dddd", 10), (Strings{"", "aaaaaaaaaa ", "bb c dddd "}));
  EXPECT_EQ(lines_of("\t\xa0\x85lll\xa0lll ", 9), (Strings{" ", "\xa0\x85lll\xa0lll ", " "}));
  EXPECT_EQ(lines_of("a\tb\vc\fd\re f", 10), (Strings{"a b c d e ", "f "}));
  EXPECT_EQ(lines_of("aa\nbbbbbbbbbb cc\ndd", 10), (Strings{"aa", "", "bbbbbbbbbb ", "cc ", "dd"}));
  EXPECT_EQ(lines_of("a b", 1), (Strings{"", "a ", "b "}));
  EXPECT_EQ(lines_of("a b\nc", 0), (Strings{"a b", "c"}));  // no room: nothing is filled
}

TEST(HelpPrinter, TakesLinearTimeForLongWordsAndBlanks) {
  for (const char byte : {'x', ' '}) {
    expect_linear_time(20000, [&](std::size_t size) {
      SampleParser parser;
      parser.set_option_help("out", std::string(size, byte));
      std::ostringstream out;
      parser.print_help(out, "", PRINT_ORDER_NAME, PRINT_STYLE_INDENTED);
    });
  }
}

}  // namespace norq
