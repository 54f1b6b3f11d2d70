#include <climits>

#include "../support.h"

namespace norq {

using std::string_literals::operator""s;

// Sets an option of this type. An enumeration has a few value names.
std::string outcome_of_value(OptionType type, const std::string& text) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  parser.add_option("o", type, "");
  parser.add_enum_value("o", "lowest", INT_MIN, "");
  parser.add_enum_value("o", "highest", INT_MAX, "");
  parser.add_enum_value("o", "odd", 16777217, "");  // 2^24 + 1, which is no float
  return outcome_of(parser, [&] { parser.parse_option("o", text, 0); });
}

TEST(HandleOption, ConvertsTheTextsThatTheTypeAccepts) {
  EXPECT_EQ(outcome_of_value(OPT_BOOL, "false"), "o = false");
  EXPECT_EQ(outcome_of_value(OPT_UINT, "18446744073709551617"), "o = 2147483647");  // 2^64 + 1
  EXPECT_EQ(outcome_of_value(OPT_INT, "-2147483649"), "o = -2147483648");
  EXPECT_EQ(outcome_of_value(OPT_FLOAT, "5."), "o = 5");
  EXPECT_EQ(outcome_of_value(OPT_FLOAT, "1" + std::string(39, '0')), "o = inf");
  EXPECT_EQ(outcome_of_value(OPT_FLOAT, std::string(20, '0') + "1.5"), "o = 1.5");
  EXPECT_EQ(outcome_of_value(OPT_FLOAT, "1.00001460313797"), "o = 1.00001454");  // 15 digits
  EXPECT_EQ(outcome_of_value(OPT_FLOAT, "9007200.500000001"),
            "o = 9007201");  // floats are whole numbers
  EXPECT_EQ(outcome_of_value(OPT_FLOAT, "1.0000000596046447753906251"),
            "o = 1");  // halfway as a double
  EXPECT_EQ(outcome_of_value(OPT_STR, "\xc4\0b"s), "o = \xc4");
  EXPECT_EQ(outcome_of_value(OPT_ENUM, "lowest"), "o = -2147483648");
  EXPECT_EQ(outcome_of_value(OPT_ENUM, "highest"), "o = 2147483647");
  EXPECT_EQ(outcome_of_value(OPT_ENUM, "odd"), "o = 16777217");
}

TEST(HandleOption, RefusesAllOtherTexts) {
  const std::tuple<int, OptionType, Strings> rows[] = {
      {__LINE__, OPT_BOOL, {"", "TRUE", "1", " true", "true ", "falsex"}},
      {__LINE__, OPT_UINT, {"", "-1", "+1", "1 "}},
      // '/' and ':' are the neighbours of the digits, \xb2 is a superscript 2 in Latin-1.
      {__LINE__, OPT_INT, {"", "-", "--1", "1-2", "+1", " 1", "1/", "1:", "\xb2", "1\0"s}},
      {__LINE__, OPT_FLOAT, {"", ".", "-0.5", "+1", "1e3", "1,5", "1..2", "1 ", "\xb2"}},
      {__LINE__, OPT_FLAG, {"x", "true"}},
      {__LINE__, OPT_ENUM, {"", "Odd", "od", "16777217"}},
      {__LINE__, OptionType(7), {"", "x"}},
  };
  for (const auto& [line, type, texts] : rows) {
    for (const std::string& text : texts) {
      const testing::ScopedTrace trace(__FILE__, line, text);
      EXPECT_EQ(outcome_of_value(type, text), "bad value for option: o, value: "s + text.c_str());
    }
  }
}

TEST(HandleOption, TheSmallerLevelWinsAndThenTheLaterValue) {
  SampleParser parser;
  parser.add_option("empty", OPT_ENUM, "");  // has no value names
  const auto set = [&](const std::string& key, const std::string& value, int level) {
    return outcome_of(parser, [&] { parser.parse_option(key, value, level); });
  };
  EXPECT_EQ(set("out", "a", INT_MAX), "out = a");
  EXPECT_EQ(set("out", "b", 0), "out = b");
  EXPECT_EQ(set("out", "c", 0), "out = c");
  EXPECT_EQ(set("out", "d", 1), "out = c");
  EXPECT_EQ(set("count", "1", INT_MIN), "count = 1; out = c");
  EXPECT_EQ(set("count", "2", INT_MAX), "count = 1; out = c");
  EXPECT_EQ(set("count", "x", 1), "bad value for option: count, value: x; count = 1; out = c");
  EXPECT_EQ(set("empty", "", 1), "bad value for option: empty, value: ; count = 1; out = c");
  EXPECT_EQ(set("absent", "y", 1), "unknown option: absent, value: y; count = 1; out = c");
  EXPECT_TRUE(parser.get_option("out")->level == 0 && parser.get_option("count")->level == INT_MIN);
}

}  // namespace norq
