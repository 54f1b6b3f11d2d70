#include "norq/tools/checks.h"

#include <cmath>

#include "../support.h"

namespace norq {

TEST(Checks, ReadWholeTextsAsNumbersBetweenTheBounds) {
  SampleParser options;
  std::int64_t integer = 7;
  double real = 7;
  const auto read = [&](auto getter, const std::string& text, auto low, auto high, auto* out) {
    options.parse_option("out", text, 0);
    return outcome_of(options, [&] { getter(options, "out", low, high, out); });
  };
  const auto error = [](const std::string& message, const std::string& text) {
    return message + ": out, value: " + text + "; out = " + text;
  };
  EXPECT_EQ(read(get_int64_option, "5", 6, 4, &integer), error("value out of range 6 to 4", "5"));
  EXPECT_EQ(read(get_int64_option, "9223372036854775808", 1, INT64_MAX, &integer),
            error("value out of range 1 to 9223372036854775807", "9223372036854775808"));
  EXPECT_EQ(read(get_double_option, "1e400", 0, HUGE_VAL, &real),
            error("value out of range 0 to inf", "1e400"));
  EXPECT_EQ(read(get_double_option, "9", 0.1, NAN, &real),
            error("value out of range 0.1 to nan", "9"));
  for (const std::string text : {"", " 5", "+-5", "5x", "0x5", "1.5."}) {
    EXPECT_EQ(read(get_int64_option, text, 0, 9, &integer), error("bad value for option", text));
    EXPECT_EQ(read(get_double_option, text, 0, 9, &real), error("bad value for option", text));
  }
  EXPECT_TRUE(integer == 7 && real == 7);  // unchanged
  read(get_int64_option, "+9223372036854775807", 0, INT64_MAX, &integer);
  read(get_double_option, "-1.25E+2", -125, 0, &real);
  EXPECT_TRUE(integer == INT64_MAX && real == -125);
}

TEST(Checks, RequireExcludeAndLimitOptionsThatAreSet) {
  OptionParser options(BOOL_STYLE_VALUE, false);
  options.add_option("f", "F", OPT_FLOAT, "");
  options.add_option("i", "I", OPT_INT, "");
  options.add_option("e", OPT_ENUM, "");
  const auto check = [&](auto function, const auto&... arguments) {
    return outcome_of(options, [&] { function(options, arguments...); });
  };
  EXPECT_EQ(check(require_options, Strings{"i"}), "required option is not set: I");
  options.parse_option("i", "-3", 0);
  EXPECT_EQ(check(exclude_options, Strings{"i", "x", "f", "i"}), "i = -3");
  options.parse_option("f", "0.1", 0);
  const std::string values = "f = 0.100000001; i = -3";
  EXPECT_EQ(check(require_options, Strings{"f", "i"}), values);
  EXPECT_EQ(check(require_options, Strings{"x"}), "required option is not set: x; " + values);
  EXPECT_EQ(check(exclude_options, Strings{"f", "i"}),
            "options exclude each other: F, I; " + values);
  for (const char* const key : {"i", "e", "x"}) EXPECT_EQ(check(check_range, key, -3, -3), values);
  EXPECT_EQ(check(check_range, "i", 0, 1), "value out of range 0 to 1: i, value: -3; " + values);
  EXPECT_EQ(check(check_range, "f", 0, 0.1), values);
  EXPECT_EQ(check(check_range, "f", 2, 3), "value out of range 2 to 3: f, value: 0.1; " + values);
}

}  // namespace norq
