#include "../support.h"

namespace norq {

TEST(HelpPrinter, ListsByGroupWithIndentedTexts) {
  OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
  parser.set_cur_help_group("Search");
  parser.add_option("verbose", OPT_BOOL, "Print diagnostic output.");
  parser.add_option("time_limit", OPT_FLOAT,
                    "Stop after this many seconds; zero means that no limit applies to a search.");
  parser.add_option("strategy", OPT_ENUM, "Search strategy.");
  parser.add_enum_value("strategy", "full", 1, "complete, slower");
  parser.add_enum_value("strategy", "fast", 2, "quick, incomplete");
  EXPECT_EQ(help_of(parser, PRINT_ORDER_GROUP_NAME, PRINT_STYLE_INDENTED, "Options:"), R"(Options:
Search
 -strategy=ENUM
          Search strategy.
          Possible values:
          - fast : quick, incomplete
          - full : complete, slower
 -time_limit=FLOAT
          Stop after this many seconds; zero means that no limit applies to a 
          search. 
 -[no_]verbose
          Print diagnostic output.
)");
}

TEST(HelpPrinter, ListsInEachOrder) {
  OptionParser parser(BOOL_STYLE_PLUS_MINUS, false);
  parser.add_option("\xe9", OPT_STR, "deprecated\nb");
  parser.add_option("G", OPT_ENUM, "");
  parser.add_enum_value("G", "value", 1, "text");
  parser.add_option("d", OPT_BOOL, "deprecated");
  parser.add_option("B", OPT_STR, "Deprecated");
  parser.add_option("c", OPT_ENUM, "deprecated");
  parser.get_option("c")->type = OptionType(7);
  parser.add_option("a", OPT_BOOL, "deprecated");
  const std::string e = " -\xe9=STR\tdeprecated\nb\n", d = " (+|-)d\n", c = " -c\n",
                    G = " -G=ENUM\t\nPossible values:\n- value : text\n",
                    B = " -B=STR\tDeprecated\n", a = " (+|-)a\n";
  EXPECT_EQ(help_of(parser, PRINT_ORDER_INDEX, PRINT_STYLE_TAB), e + G + d + B + c + a);
  EXPECT_EQ(help_of(parser, PRINT_ORDER_NAME, PRINT_STYLE_TAB), B + G + a + c + d + e);
  EXPECT_EQ(help_of(parser, PRINT_ORDER_TYPE_INDEX, PRINT_STYLE_TAB), d + a + e + B + G + c);
  EXPECT_EQ(help_of(parser, PRINT_ORDER_TYPE_NAME, PRINT_STYLE_TAB), a + d + B + e + G + c);
}

// The lines of the help text in a column of this width.
Strings lines_of(const std::string& help, std::size_t width) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  parser.add_option(std::string(72 - width, 'n'), OPT_BOOL, "deprecated");  // " -nnn=BOOL"
  parser.add_option("o", OPT_FLAG, help);
  std::istringstream listing(help_of(parser, PRINT_ORDER_INDEX, PRINT_STYLE_ALIGNED));
  Strings lines;
  std::string line;
  std::getline(listing, line);  // of the deprecated option
  while (std::getline(listing, line)) lines.push_back(line.substr(80 - width));
  return lines;
}

TEST(HelpPrinter, WrapsLinesAtTheWidth) {
  EXPECT_EQ(lines_of("\ta  b\v cd ", 10), (Strings{"\ta  b\v cd "}));
  EXPECT_EQ(lines_of("", 10), Strings{""});
  EXPECT_EQ(lines_of("\n\na\n", 10), (Strings{"", "", "a", ""}));
  EXPECT_EQ(lines_of("aaaaa bbbb c", 10), (Strings{"aaaaa ", "bbbb c "}));
  EXPECT_EQ(lines_of("aaaaa bbb c", 10), (Strings{"aaaaa bbb ", "c "}));
  EXPECT_EQ(lines_of("aaaaaaaaa  b", 10), (Strings{"aaaaaaaaa ", " b "}));
  EXPECT_EQ(lines_of("aaaaaaaaaaaa bb c dddd", 10), (Strings{"", "aaaaaaaaaaaa ", "bb c dddd "}));
  EXPECT_EQ(lines_of("\t\xa0\x85lll\xa0lll ", 9), (Strings{" ", "\xa0\x85lll\xa0lll ", " "}));
  EXPECT_EQ(lines_of("\ta\vb\fc\rd e f", 10), (Strings{" a b c d ", "e f "}));
  EXPECT_EQ(lines_of("aa\nbbbbbbbbbb cc\ndd", 10), (Strings{"aa", "", "bbbbbbbbbb ", "cc ", "dd"}));
  EXPECT_EQ(lines_of("a b", 1), (Strings{"", "a ", "b "}));
  EXPECT_EQ(lines_of("a b\nc", 0), (Strings{"a b", "c"}));  // no room: nothing is wrapped
}

TEST(HelpPrinter, TakesLinearTimeForLongWordsAndManyBlanks) {
  expect_linear_time(100000, [](std::size_t size) {
    SampleParser parser;
    parser.set_option_help("out", std::string(size, 'x') + std::string(size, ' '));
    help_of(parser, PRINT_ORDER_NAME, PRINT_STYLE_INDENTED);
  });
}

}  // namespace norq
