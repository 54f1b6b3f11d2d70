#include "norq/tools/checks.h"

#include <gtest/gtest.h>

#include <cmath>

namespace norq {

template <class Check, class... Arguments>
std::string error_text(Check check, const Arguments&... arguments) {
  try {
    check(arguments...);
  } catch (const Exception& refusal) {
    return refusal.what();
  }
  return "";
}

TEST(Checks, ReadWholeTextsAsNumbersBetweenTheBounds) {
  OptionParser options(BOOL_STYLE_VALUE, false);
  options.add_option("n", OPT_STR, "");
  std::int64_t integer = 7;
  double real = 7;
  const auto read_integer = [&](const std::string& text, std::int64_t low, std::int64_t high) {
    options.parse_option("n", text, 0);
    return error_text(get_int64_option, options, "n", low, high, &integer);
  };
  const auto read_real = [&](const std::string& text, double low, double high) {
    options.parse_option("n", text, 0);
    return error_text(get_double_option, options, "n", low, high, &real);
  };
  EXPECT_EQ(read_integer("5", 6, 4), "value out of range 6 to 4: n, value: 5");
  EXPECT_EQ(read_integer("9223372036854775808", 1, INT64_MAX),
            "value out of range 1 to 9223372036854775807: n, value: 9223372036854775808");
  EXPECT_EQ(read_real("1e400", 0, HUGE_VAL), "value out of range 0 to inf: n, value: 1e400");
  EXPECT_EQ(read_real("9", 0.1, std::nan("")), "value out of range 0.1 to nan: n, value: 9");
  for (const std::string text : {"", " 5", "+-5", "5x", "0x5", "1.5."}) {
    EXPECT_EQ(read_integer(text, 0, 9), "bad value for option: n, value: " + text);
    EXPECT_EQ(read_real(text, 0, 9), "bad value for option: n, value: " + text);
  }
  EXPECT_TRUE(integer == 7 && real == 7);  // untouched
  EXPECT_EQ(read_integer("+9223372036854775807", 0, INT64_MAX) + read_real("-1.25E+2", -125, 0),
            "");
  EXPECT_TRUE(integer == INT64_MAX && real == -125);
}

TEST(Checks, OfOptionsThatAreSet) {
  OptionParser options(BOOL_STYLE_VALUE, false);
  options.add_option("f", "F", OPT_FLOAT, "");
  options.add_option("i", "I", OPT_INT, "");
  using Keys = std::vector<std::string>;
  EXPECT_EQ(error_text(require_options, options, Keys{"i"}), "required option is not set: I");
  options.parse_option("i", "-3", 0);
  EXPECT_EQ(error_text(exclude_options, options, Keys{"i", "x", "f", "i"}), "");
  options.parse_option("f", "0.1", 0);
  EXPECT_EQ(error_text(require_options, options, Keys{"f", "i"}), "");
  EXPECT_EQ(error_text(require_options, options, Keys{"x"}), "required option is not set: x");
  EXPECT_EQ(error_text(exclude_options, options, Keys{"f", "i"}),
            "options exclude each other: F, I");
  EXPECT_EQ(error_text(check_range, options, "i", -3, -3), "");
  EXPECT_EQ(error_text(check_range, options, "f", 2, 3),
            "value out of range 2 to 3: f, value: 0.1");
}

}  // namespace norq
