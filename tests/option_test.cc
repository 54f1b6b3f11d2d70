#include "norq/options/option.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <limits>
#include <optional>
#include <random>
#include <string>

#include "options/handle_option.h"

namespace norq {
namespace {

TEST(Option, BoolFlagAndEnumTakeTheirWordsOnly) {
  const struct {
    OptionType type;
    std::string text;
    bool accepted;
  } cases[] = {
      {OPT_BOOL, "true", true},    {OPT_BOOL, "false", true},  {OPT_BOOL, "TRUE", false},
      {OPT_BOOL, "True", false},   {OPT_BOOL, "1", false},     {OPT_BOOL, "yes", false},
      {OPT_BOOL, " true", false},  {OPT_BOOL, "true ", false}, {OPT_BOOL, "", false},
      {OPT_FLAG, "", true},        {OPT_FLAG, "x", false},     {OPT_FLAG, "true", false},
      {OPT_ENUM, "slow", true},    {OPT_ENUM, "Slow", false},  {OPT_ENUM, "medium", false},
      {OPT_ENUM, "slo", false},    {OPT_ENUM, "", false},      {OPT_STR, "", true},
      {OPT_STR, "\x80\xff", true}, {OptionType(7), "", false},
  };
  for (const auto& c : cases) {
    Option option("o", c.type, "", 0, 1);
    if (c.type == OPT_ENUM) option.enum_values.reset(new Option::EnumValues{{"slow", {5, ""}}});
    EXPECT_EQ(handle_option(option, c.text, 2), c.accepted) << c.type << " '" << c.text << "'";
    EXPECT_EQ(option.is_set, c.accepted) << c.type << " '" << c.text << "'";
    EXPECT_EQ(option.level, c.accepted ? 2 : 0) << c.type << " '" << c.text << "'";
    if (!c.accepted) continue;
    if (c.type == OPT_BOOL) {
      EXPECT_EQ(option.value.bool_value, c.text == "true");
    }
    if (c.type == OPT_ENUM) {
      EXPECT_EQ(option.value.int_value, 5);
    }
  }
  Option without_values("o", OPT_ENUM, "", 0, 1);
  EXPECT_FALSE(handle_option(without_values, "", 0));
}

TEST(Option, IntegersAreDecimalDigitsAndSaturate) {
  const std::string nul(1, '\0');
  const struct {
    std::string text;
    std::optional<int> as_int;
    std::optional<int> as_uint;
  } cases[] = {
      {"0", 0, 0},
      {"007", 7, 7},
      {"-12", -12, {}},
      {"-0", 0, {}},
      {"", {}, {}},
      {"-", {}, {}},
      {"+1", {}, {}},
      {"1 ", {}, {}},
      {" 1", {}, {}},
      {"--1", {}, {}},
      {"1-2", {}, {}},
      {"-x", {}, {}},
      {"0x1", {}, {}},
      {"1.", {}, {}},
      {"\xb2", {}, {}},
      {"1" + nul, {}, {}},
      {"2147483647", INT_MAX, INT_MAX},
      {"2147483648", INT_MAX, INT_MAX},
      {"-2147483648", INT_MIN, {}},
      {"-2147483649", INT_MIN, {}},
      {"18446744073709551617", INT_MAX, INT_MAX},
      {"-99999999999999999999999", INT_MIN, {}},
  };
  for (const auto& c : cases) {
    for (const OptionType type : {OPT_INT, OPT_UINT}) {
      const auto& expected = type == OPT_INT ? c.as_int : c.as_uint;
      Option option("o", type, "", 0, 1);
      EXPECT_EQ(handle_option(option, c.text, 0), expected.has_value()) << type << " " << c.text;
      EXPECT_EQ(option.value.int_value, expected.value_or(0)) << type << " " << c.text;
    }
  }
}

TEST(Option, FloatsAreDigitsAroundAtMostOnePoint) {
  const float infinity = std::numeric_limits<float>::infinity();
  const struct {
    std::string text;
    std::optional<float> value;
  } cases[] = {
      {"2", 2.0f},
      {"3.25", 3.25f},
      {".5", 0.5f},
      {"5.", 5.0f},
      {"00.50", 0.5f},
      {".", {}},
      {"", {}},
      {"-0.5", {}},
      {"+1", {}},
      {"1e3", {}},
      {"1,5", {}},
      {"1..2", {}},
      {"1.2.3", {}},
      {".5.", {}},
      {" 1", {}},
      {"inf", {}},
      {"0x1", {}},
      {"\xb2", {}},
      {"340282346638528859811704183484516925440", std::numeric_limits<float>::max()},
      {"1" + std::string(39, '0'), infinity},
      {"1" + std::string(400, '0'), infinity},
      {"." + std::string(400, '0') + "1", 0.0f},
      {std::string(400, '0') + "1.5", 1.5f},
      // To the nearest double first: it lies on the middle between two floats, and the even one
      // wins, although the text is nearer to the other.
      {"1.000000059604644775390625000000001", 1.0f},
  };
  for (const auto& c : cases) {
    Option option("o", OPT_FLOAT, "", 0, 1);
    EXPECT_EQ(handle_option(option, c.text, 0), c.value.has_value()) << c.text;
    EXPECT_EQ(option.value.float_value, c.value.value_or(0.0f)) << c.text;
  }
}

TEST(Option, FloatsAreWhatTheCLocaleReads) {
  std::mt19937 random(20261);  // NOLINT: the same numbers in every run
  for (int i = 0; i < 2000; ++i) {
    std::string text;
    for (std::size_t length = 1 + random() % 40; length-- > 0;) {
      text += static_cast<char>('0' + random() % 10);
    }
    text.insert(random() % text.size(), 1, '.');
    Option option("o", OPT_FLOAT, "", 0, 1);
    ASSERT_TRUE(handle_option(option, text, 0)) << text;
    ASSERT_EQ(option.value.float_value, static_cast<float>(std::strtod(text.c_str(), nullptr)))
        << text;
  }
}

TEST(Option, ASmallerLevelHoldsItsValue) {
  const struct {
    int first_level;
    const char* text;
    int level;
    bool accepted;
    int value;
    int final_level;
  } cases[] = {
      {0, "2", 1, true, 1, 0},    {1, "2", 0, true, 2, 0},  {1, "2", 1, true, 2, 1},
      {0, "x", 1, false, 1, 0},   {1, "x", 0, false, 1, 1}, {-3, "2", -2, true, 1, -3},
      {-2, "2", -3, true, 2, -3},
  };
  for (const auto& c : cases) {
    Option option("o", OPT_INT, "", 0, 1);
    ASSERT_TRUE(handle_option(option, "1", c.first_level));
    EXPECT_EQ(handle_option(option, c.text, c.level), c.accepted) << c.text << " " << c.level;
    EXPECT_EQ(option.value.int_value, c.value) << c.text << " " << c.level;
    EXPECT_EQ(option.level, c.final_level) << c.text << " " << c.level;
  }
  Option text("o", OPT_STR, "", 0, 1);
  ASSERT_TRUE(handle_option(text, "kept", 0) && handle_option(text, "held back", 1));
  EXPECT_STREQ(text.value.str_value, "kept");
}

TEST(Option, CopiesShareNothing) {
  Option text("n", OPT_STR, "h", 3, 4);
  ASSERT_TRUE(handle_option(text, std::string("ab\0c", 4), 6));
  Option choice("m", OPT_ENUM, "", 0, 1);
  choice.enum_values.reset(new Option::EnumValues{{"fast", {1, "quick"}}});
  ASSERT_TRUE(handle_option(choice, "fast", 0));

  const Option copy(text);
  text.value.str_value[0] = 'X';
  EXPECT_STREQ(copy.value.str_value, "ab");
  EXPECT_EQ(copy.name + copy.help, "nh");
  EXPECT_EQ(copy.type, OPT_STR);
  EXPECT_TRUE(copy.is_set);
  EXPECT_EQ(copy.group * 100 + copy.index * 10 + copy.level, 346);

  Option assigned(choice);
  choice.enum_values->clear();
  EXPECT_EQ(assigned.enum_values->at("fast"), std::make_pair(1, std::string("quick")));
  EXPECT_EQ(assigned.value.int_value, 1);
  assigned = text;  // from enumeration to text and back
  EXPECT_STREQ(assigned.value.str_value, "Xb");
  EXPECT_EQ(assigned.enum_values, nullptr);
  assigned = choice;
  EXPECT_EQ(assigned.type, OPT_ENUM);

  const char* const buffer = text.value.str_value;
  const Option& itself = text;
  text = itself;
  EXPECT_EQ(text.value.str_value, buffer);

  const Option moved(std::move(text));
  EXPECT_EQ(moved.value.str_value, buffer);
  assigned = Option(moved);
  EXPECT_STREQ(assigned.value.str_value, "Xb");

  Option number("i", OPT_INT, "", 0, 1);
  number.enum_values.reset(new Option::EnumValues);  // enumerations alone have one
  EXPECT_EQ(Option(number).enum_values, nullptr);
}

}  // namespace
}  // namespace norq
