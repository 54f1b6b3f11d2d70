#include "../support.h"

namespace norq {

using std::string_literals::operator""s;

// Sets an option of this type. An enumeration has a few value names.
std::string value_of(OptionType type, const std::string& text) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  parser.add_option("o", "name", type, "");
  parser.add_enum_value("o", "lowest", INT_MIN, "");
  parser.add_enum_value("o", "highest", INT_MAX, "");
  parser.add_enum_value("o", "odd", 16777217, "");  // 2^24 + 1, which is not a float
  return outcome_of(parser, [&] { parser.parse_option("o", text, 0); });
}

TEST(HandleOption, ConvertsTheTextsThatTheTypeAccepts) {
  EXPECT_EQ(value_of(OPT_BOOL, "false"), "o = false");
  EXPECT_EQ(value_of(OPT_UINT, "18446744073709551617"), "o = 2147483647");  // 2^64 + 1
  EXPECT_EQ(value_of(OPT_INT, "-2147483649"), "o = -2147483648");
  EXPECT_EQ(value_of(OPT_FLOAT, "5."), "o = 5");
  EXPECT_EQ(value_of(OPT_FLOAT, "1" + std::string(39, '0')), "o = inf");
  EXPECT_EQ(value_of(OPT_FLOAT, "." + std::string(44, '0') + "1"), "o = 1.40129846e-45");
  EXPECT_EQ(value_of(OPT_FLOAT, std::string(20, '0') + "1.5"), "o = 1.5");
  EXPECT_EQ(value_of(OPT_FLOAT, ".0009765625"), "o = 0.0009765625");         // 2^-10
  EXPECT_EQ(value_of(OPT_FLOAT, ".000030517578125"), "o = 3.05175781e-05");  // 2^-15
  EXPECT_EQ(value_of(OPT_FLOAT, "730258.03125"), "o = 730258");            // halfway to 730258.0625
  EXPECT_EQ(value_of(OPT_FLOAT, "9007200.500000001"), "o = 9007201");      // above half
  EXPECT_EQ(value_of(OPT_FLOAT, "1.0000000596046447753906251"), "o = 1");  // via double
  EXPECT_EQ(value_of(OPT_STR, "\xc4\0b"s), "o = \xc4");
  EXPECT_EQ(value_of(OPT_ENUM, "lowest"), "o = -2147483648");
  EXPECT_EQ(value_of(OPT_ENUM, "highest"), "o = 2147483647");
  EXPECT_EQ(value_of(OPT_ENUM, "odd"), "o = 16777217");
}

TEST(HandleOption, RejectsAllOtherTexts) {
  const std::pair<OptionType, Strings> rows[] = {
      {OPT_BOOL, {"", "TRUE", "1", " true", "true ", "falsex"}},
      {OPT_UINT, {"", "-1", "+1", "1 "}},
      // '/' and ':' are the neighbours of the digits, \xb2 is a superscript 2 in Latin-1.
      {OPT_INT, {"", "-", "--1", "1-2", "+1", " 1", "1/", "1:", "\xb2", "1\0"s}},
      {OPT_FLOAT, {"", ".", "-0.5", "+1", "1e3", "1,5", "1..2", "1 ", "\xb2"}},
      {OPT_FLAG, {"x", "true"}},
      {OPT_ENUM, {"", "Odd", "od", "16777217"}},
      {OptionType(7), {"", "x"}},
  };
  for (const auto& [type, texts] : rows) {
    for (const std::string& text : texts) {
      EXPECT_EQ(value_of(type, text), "bad value for option: o, value: "s + text.c_str())
          << "type " << type;
    }
  }
}

TEST(HandleOption, SmallerLevelsWinAndThenLaterValues) {
  SampleParser parser;
  parser.add_option("empty", OPT_ENUM, "");  // has no value names
  const auto set = [&](const std::string& key, const std::string& value, int level) {
    return outcome_of(parser, [&] { parser.parse_option(key, value, level); });
  };
  EXPECT_EQ(set("out", "a", INT_MAX), "out = a");
  EXPECT_EQ(set("out", "b", 0), "out = b");
  EXPECT_EQ(set("out", "c", 0), "out = c");
  EXPECT_EQ(set("out", "d", 1), "out = c");
  EXPECT_EQ(set("verbose", "true", INT_MIN), "out = c; verbose = true");
  EXPECT_EQ(set("verbose", "false", INT_MAX), "out = c; verbose = true");
  EXPECT_EQ(set("verbose", "x", 1),
            "bad value for option: verbose, value: x; out = c; verbose = true");
  EXPECT_EQ(set("empty", "", 1), "bad value for option: empty, value: ; out = c; verbose = true");
  EXPECT_EQ(parser.get_option("verbose")->level, INT_MIN);
}

}  // namespace norq
