#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "norq/options/option_parser.h"

namespace norq {
namespace {

std::string help_of(OptionParser& parser, const std::string& heading, OptionPrintOrder order,
                    OptionPrintStyle style) {
  std::ostringstream out;
  parser.print_help(out, heading, order, style);
  return out.str();
}

void add_search_options(OptionParser& parser) {
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
  parser.set_cur_help_group("Output");
  parser.add_option("log_file", OPT_STR, "Write the log to this file.\nThe file is overwritten.");
}

TEST(HelpPrinter, TabStyleByIndex) {
  OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
  add_search_options(parser);
  EXPECT_EQ(help_of(parser, "", PRINT_ORDER_INDEX, PRINT_STYLE_TAB),
            " -verbosity=INT\tVerbosity level of the diagnostic output.\n"
            " -[no_]restarts\tEnable restarts.\n"
            " -strategy=ENUM\tSearch strategy.\n"
            "Possible values:\n"
            "- fast : quick, incomplete\n"
            "- full : complete, slower\n"
            " -time_limit=FLOAT\tStop after this many seconds; a value of zero or below means that "
            "no limit applies to the search at all.\n"
            " -old_seed=INT\n"
            " -log_file=STR\tWrite the log to this file.\n"
            "The file is overwritten.\n");
}

TEST(HelpPrinter, AlignedStyleByName) {
  OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
  add_search_options(parser);
  EXPECT_EQ(help_of(parser, "", PRINT_ORDER_NAME, PRINT_STYLE_ALIGNED),
            " -log_file=STR     Write the log to this file.\n"
            "                   The file is overwritten.\n"
            " -old_seed=INT\n"
            " -[no_]restarts    Enable restarts.\n"
            " -strategy=ENUM    Search strategy.\n"
            "                   Possible values:\n"
            "                   - fast : quick, incomplete\n"
            "                   - full : complete, slower\n"
            " -time_limit=FLOAT Stop after this many seconds; a value of zero or below means \n"
            "                   that no limit applies to the search at all. \n"
            " -verbosity=INT    Verbosity level of the diagnostic output.\n");
}

TEST(HelpPrinter, IndentedStyleByGroup) {
  OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
  add_search_options(parser);
  const std::string expected =
      "Options:\n"
      "\n"
      " -verbosity=INT\n"
      "          Verbosity level of the diagnostic output.\n"
      "\n"
      "Search\n"
      " -old_seed=INT\n"
      " -[no_]restarts\n"
      "          Enable restarts.\n"
      " -strategy=ENUM\n"
      "          Search strategy.\n"
      "          Possible values:\n"
      "          - fast : quick, incomplete\n"
      "          - full : complete, slower\n"
      " -time_limit=FLOAT\n"
      "          Stop after this many seconds; a value of zero or below means that no \n"
      "          limit applies to the search at all. \n"
      "\n"
      "Output\n"
      " -log_file=STR\n"
      "          Write the log to this file.\n"
      "          The file is overwritten.\n";
  for (const char* time : {"first", "second"}) {
    EXPECT_EQ(help_of(parser, "Options:", PRINT_ORDER_GROUP_NAME, PRINT_STYLE_INDENTED), expected)
        << time;
  }
}

TEST(HelpPrinter, EveryOrderAndItsTies) {
  const struct {
    int order;
    const char* names;
  } cases[] = {
      {PRINT_ORDER_INDEX, "f b G d B c a "},
      {PRINT_ORDER_NAME, "B G a b c d f "},
      {PRINT_ORDER_TYPE_INDEX, "d a G f B c b "},
      {PRINT_ORDER_TYPE_NAME, "a d G B f c b "},
  };
  OptionParser parser(BOOL_STYLE_VALUE, false);
  const struct {
    const char* name;
    OptionType type;
  } options[] = {{"f", OPT_STR}, {"b", OPT_ENUM}, {"G", OPT_UINT}, {"d", OPT_BOOL},
                 {"B", OPT_STR}, {"c", OPT_FLAG}, {"a", OPT_BOOL}};
  for (const auto& o : options) parser.add_option(o.name, o.type, "deprecated");
  for (const auto& c : cases) {
    std::istringstream lines(
        help_of(parser, "", static_cast<OptionPrintOrder>(c.order), PRINT_STYLE_TAB));
    std::string names;
    for (std::string line; std::getline(lines, line);) names += line.substr(2, 1) + " ";
    EXPECT_EQ(names, c.names) << c.order;
  }
}

TEST(HelpPrinter, EntriesShowKindAndStyle) {
  const struct {
    OptionBoolStyle style;
    OptionType type;
    const char* listed;
  } cases[] = {
      {BOOL_STYLE_NO_PREFIX, OPT_BOOL, " -[no_]n\t\n"},
      {BOOL_STYLE_PLUS_MINUS, OPT_BOOL, " (+|-)n\t\n"},
      {BOOL_STYLE_VALUE, OPT_BOOL, " -n=BOOL\t\n"},
      {BOOL_STYLE_PLUS_MINUS, OPT_INT, " -n=INT\t\n"},
      {BOOL_STYLE_VALUE, OPT_FLAG, " -n\t\n"},
      {BOOL_STYLE_VALUE, OPT_ENUM, " -n=ENUM\t\n"},
      {BOOL_STYLE_VALUE, OptionType(9), " -n\t\n"},
  };
  for (const auto& c : cases) {
    OptionParser parser(c.style, false);
    parser.add_option("key", "n", c.type, "");
    EXPECT_EQ(help_of(parser, "", PRINT_ORDER_NAME, PRINT_STYLE_TAB), c.listed);
  }
}

// One option whose entry is " -n", so that the aligned column is 4 and the text 76 wide.
TEST(HelpPrinter, TextIsFilledToTheWidth) {
  const std::string w76(76, 'w');
  const std::string w74(74, 'w');
  const struct {
    std::string help;
    std::string aligned;
  } cases[] = {
      {"", " -n \n"},
      {"deprecated", " -n\n"},
      {"Deprecated", " -n Deprecated\n"},
      {"deprecated.", " -n deprecated.\n"},
      {"a  b\tc ", " -n a  b\tc \n"},
      {"a\n", " -n a\n    \n"},
      {"\n\na", " -n \n    \n    a\n"},
      {w74 + " a", " -n " + w74 + " a\n"},
      {w74 + " ab", " -n " + w74 + " \n    ab \n"},
      {w74 + "w ab", " -n " + w74 + "w \n    ab \n"},
      {w74 + "  a", " -n " + w74 + "  \n    a \n"},
      {"a\t\v" + w74, " -n a  \n    " + w74 + " \n"},
      {w74 + "\n" + w76 + " ", " -n " + w74 + "\n    \n    " + w76 + " \n     \n"},
      {w76 + "w", " -n \n    " + w76 + "w \n"},
      {"a " + w76 + "w b", " -n a \n    " + w76 + "w \n    b \n"},
      {w74 + "\xa0\xa0\xa0\xa0", " -n \n    " + w74 + "\xa0\xa0\xa0\xa0 \n"},
  };
  for (const auto& c : cases) {
    OptionParser parser(BOOL_STYLE_VALUE, false);
    parser.add_option("n", OPT_FLAG, c.help);
    EXPECT_EQ(help_of(parser, "", PRINT_ORDER_NAME, PRINT_STYLE_ALIGNED), c.aligned) << c.help;
  }
}

TEST(HelpPrinter, WideEntriesLeaveTextItsLines) {
  const std::string text = "some words \nand  more" + std::string(90, ' ') + "words";
  const std::string line_2 = text.substr(12);
  for (const std::size_t length : {79u, 80u, 200u}) {
    const std::string name(length - 2, 'n');
    OptionParser parser(BOOL_STYLE_VALUE, false);
    parser.add_option(name, OPT_FLAG, text);
    EXPECT_EQ(help_of(parser, "", PRINT_ORDER_NAME, PRINT_STYLE_ALIGNED),
              " -" + name + " some words \n" + std::string(length + 1, ' ') + line_2 + "\n");
  }
  OptionParser narrow(BOOL_STYLE_VALUE, false);  // an entry of 78 leaves a width of 1
  narrow.add_option(std::string(76, 'n'), OPT_FLAG, "a b");
  EXPECT_EQ(help_of(narrow, "", PRINT_ORDER_NAME, PRINT_STYLE_ALIGNED),
            " -" + std::string(76, 'n') + " \n" + std::string(79, ' ') + "a \n" +
                std::string(79, ' ') + "b \n");
}

TEST(HelpPrinter, AnEmptyParserListsItsHeading) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  EXPECT_EQ(help_of(parser, "", PRINT_ORDER_NAME, PRINT_STYLE_ALIGNED), "");
  EXPECT_EQ(help_of(parser, "Options", PRINT_ORDER_GROUP_NAME, PRINT_STYLE_TAB), "Options\n");
}

TEST(HelpPrinter, TheHostsChangesShow) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  parser.add_option("mode", OPT_ENUM, "deprecated");
  EXPECT_EQ(help_of(parser, "", PRINT_ORDER_NAME, PRINT_STYLE_TAB), " -mode=ENUM\n");
  parser.add_enum_value("mode", "v", 1, "");
  parser.get_option("mode")->name = "shown";
  parser.get_option("mode")->group = 2;  // a group without a name ...
  EXPECT_EQ(help_of(parser, "", PRINT_ORDER_GROUP_NAME, PRINT_STYLE_TAB),
            "\n -shown=ENUM\tdeprecated\nPossible values:\n- v : \n");
  for (const char* group : {"one", "two"}) parser.set_cur_help_group(group);  // ... gets one
  EXPECT_EQ(
      help_of(parser, "", PRINT_ORDER_GROUP_NAME, PRINT_STYLE_INDENTED),
      "two\n -shown=ENUM\n          deprecated\n          Possible values:\n          - v : \n");
}

// Options with the same name come out as the sort leaves the table's order: fewer than 16 as they
// were. The keys a, b and c hash to the buckets 4, 5 and 6 of 31.
TEST(HelpPrinter, EqualNamesFollowTheTable) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  for (const char* key : {"c", "a", "b"}) parser.add_option(key, "same", OPT_FLAG, key);
  EXPECT_EQ(help_of(parser, "", PRINT_ORDER_NAME, PRINT_STYLE_TAB),
            " -same\ta\n -same\tb\n -same\tc\n");
}

}  // namespace
}  // namespace norq
