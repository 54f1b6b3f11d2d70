#include "../support.h"

namespace norq {

// A parser with one option, whose fields differ for each type and number.
std::unique_ptr<OptionParser> make_parser(int type, int number) {
  const char* const values[] = {"true", "1", "-1", "1.5", "text", "", "fast"};
  auto parser = std::make_unique<OptionParser>(BOOL_STYLE_VALUE, false);
  parser->add_option("o", values[type], OptionType(type), std::string(30, 'x') + values[type]);
  parser->add_enum_value("o", "fast", number, "");
  parser->parse_option("o", values[type], number);
  Option& option = *parser->get_option("o");
  option.group = option.index = number;
  option.is_set = number == 1;
  return parser;
}

TEST(Option, ACopyHasAllFieldsAndSharesNone) {
  EXPECT_EQ(std::vector<Option>(1, {"o", OPT_STR, "", 0, 0}).front().value.str_value, nullptr);
  for (int type = OPT_BOOL; type <= OPT_ENUM; ++type) {
    for (int old_type = OPT_BOOL; old_type <= OPT_ENUM; ++old_type) {
      SCOPED_TRACE(testing::Message() << "type " << type << " replaces type " << old_type);
      const auto source = make_parser(type, 1);
      const auto target = make_parser(old_type, 2);
      *target->get_option("o") = Option(*source->get_option("o"));
      const std::string expected = view_of(*source);
      source->del_option("o");
      EXPECT_EQ(view_of(*target), expected);
    }
  }
}

}  // namespace norq
