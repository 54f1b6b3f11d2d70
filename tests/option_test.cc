#include "norq/options/option.h"

#include <gtest/gtest.h>

#include "options/handle_option.h"

namespace norq {

TEST(Option, CopiesShareNothing) {
  Option without_values("o", OPT_ENUM, "", 0, 1);
  EXPECT_FALSE(handle_option(without_values, "", 0));
  EXPECT_EQ(Option(Option("o", OPT_STR, "", 0, 1)).value.str_value, nullptr);
  Option text("n", OPT_STR, "h", 3, 4), choice("m", OPT_ENUM, "", 0, 1),
      number("i", OPT_INT, "", 0, 1);
  choice.enum_values.reset(new Option::EnumValues{{"fast", {1, "quick"}}});
  number.enum_values.reset(new Option::EnumValues);
  EXPECT_EQ(Option(number).enum_values, nullptr);  // enumerations alone have one
  ASSERT_TRUE(handle_option(text, "ab", 6) && handle_option(choice, "fast", 0));

  const Option copy(text);
  text.value.str_value[0] = 'X';
  EXPECT_EQ(copy.name + copy.help + copy.value.str_value, "nhab");
  EXPECT_TRUE(copy.type == OPT_STR && copy.is_set);
  EXPECT_EQ(copy.group * 100 + copy.index * 10 + copy.level, 346);
  Option assigned(choice);
  choice.enum_values->clear();
  EXPECT_EQ(assigned.enum_values->at("fast"), std::make_pair(1, std::string("quick")));
  EXPECT_EQ(assigned.value.int_value, 1);
  assigned = text;  // from enumeration to text and back
  EXPECT_TRUE(assigned.is_set && assigned.level == 6);
  EXPECT_TRUE(assigned.enum_values == nullptr && assigned.value.str_value == std::string("Xb"));
  assigned = choice;
  EXPECT_EQ(assigned.type, OPT_ENUM);

  const char* const buffer = text.value.str_value;
  const Option& itself = text;
  text = itself;
  assigned = Option(std::move(text));
  EXPECT_EQ(assigned.value.str_value, buffer);
}

}  // namespace norq
