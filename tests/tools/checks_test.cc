#include "norq/tools/checks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace norq {

template <class Act>
std::string error_text(Act act) {
  try {
    act();
  } catch (const Exception& refusal) {
    return refusal.what();
  }
  return "";
}

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();

TEST(Checks, ReadWholeTextsAsNumbersBetweenTheBounds) {
  OptionParser options(BOOL_STYLE_VALUE, false);
  options.add_option("n", OPT_STR, "");
  std::int64_t number = 7;
  double real = 7;
  EXPECT_FALSE(get_int64_option(options, "n", 1, 0, &number));
  const auto int64 = [&](const char* text, std::int64_t low, std::int64_t high) {
    options.parse_option("n", text, 0);
    return error_text([&] { get_int64_option(options, "n", low, high, &number); });
  };
  const auto decimal = [&](const char* text, double low, double high) {
    options.parse_option("n", text, 0);
    real = 7;
    return error_text([&] { get_double_option(options, "n", low, high, &real); });
  };
  EXPECT_EQ(int64("+9223372036854775807", most, most), "");
  EXPECT_EQ(number, most);
  EXPECT_EQ(int64("9223372036854775808", 1, most),
            "value out of range 1 to 9223372036854775807: n, value: 9223372036854775808");
  EXPECT_EQ(int64("4", 5, 6), "value out of range 5 to 6: n, value: 4");
  EXPECT_EQ(int64("5", 6, 4), "value out of range 6 to 4: n, value: 5");
  for (const char* const text : {"", "+-5", " 5", "5-"}) {
    EXPECT_EQ(int64(text, -most, most), std::string("bad value for option: n, value: ") + text);
  }
  EXPECT_EQ(decimal("-1.25E+2", -125, 0), "");
  EXPECT_EQ(real, -125);
  EXPECT_EQ(decimal("1e-400", 0, 0), "");
  EXPECT_EQ(decimal("1e400", -inf, inf), "value out of range -inf to inf: n, value: 1e400");
  EXPECT_EQ(decimal("9", 0.1, std::nan("")), "value out of range 0.1 to nan: n, value: 9");
  EXPECT_EQ(real, 7);
  for (const char* const text : {"", ".", "0x1p3", "inf", "1,5", "1.5.", "1e", "5 "}) {
    EXPECT_EQ(decimal(text, -inf, inf), std::string("bad value for option: n, value: ") + text);
  }
}

TEST(Checks, OfOptionsThatAreSet) {
  OptionParser options(BOOL_STYLE_VALUE, false);
  options.add_option("f", "real", OPT_FLOAT, "");
  options.add_option("i", "int", OPT_INT, "");
  options.add_option("e", OPT_ENUM, "");
  options.add_enum_value("e", "nine", 9, "");
  EXPECT_EQ(error_text([&] { check_range(options, "i", 1, 2); }), "");
  EXPECT_EQ(error_text([&] { require_options(options, {"i"}); }),
            "required option is not set: int");
  EXPECT_EQ(error_text([&] { require_options(options, {"x"}); }), "required option is not set: x");
  options.parse_option("i", "-3", 0);
  EXPECT_EQ(error_text([&] { exclude_options(options, {"i", "x", "f", "i"}); }), "");
  options.parse_option("f", "0.1", 0);
  options.parse_option("e", "nine", 0);
  EXPECT_EQ(error_text([&] { require_options(options, {"f", "i"}); }), "");
  EXPECT_EQ(error_text([&] {
              exclude_options(options, {"f", "i"});
            }),
            "options exclude each other: real, int");
  EXPECT_EQ(error_text([&] { check_range(options, "f", 0.2, 1); }),
            "value out of range 0.2 to 1: f, value: 0.1");
  EXPECT_EQ(error_text([&] { check_range(options, "i", -2, 1); }),
            "value out of range -2 to 1: i, value: -3");
  EXPECT_EQ(error_text([&] { check_range(options, "i", -3, -3); }), "");
  EXPECT_EQ(error_text([&] { check_range(options, "e", 1, 2); }), "");
}

}  // namespace norq
