#include "norq/options/option_parser.h"

#include "../support.h"
#include "norq/utils/string_utils.h"

namespace norq {

static_assert(BOOL_STYLE_NO_PREFIX == 0 && PRINT_ORDER_TYPE_INDEX == 2 && PRINT_STYLE_TAB == 0);

TEST(OptionParser, RegistersOptionsInGroupsButNoKeyTwice) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  EXPECT_TRUE(parser.add_option("a", OPT_INT, "first"));
  parser.set_cur_help_group("G");
  EXPECT_FALSE(parser.add_option("a", "other", OPT_STR, "second"));
  EXPECT_TRUE(parser.add_option("b", OPT_STR, "third"));
  [[maybe_unused]] const Option* const b = parser.get_option("b");
  EXPECT_TRUE(parser.del_option("b") && !parser.del_option("b"));
#ifdef __SANITIZE_ADDRESS__
  EXPECT_DEATH(std::exit(b->index), "use-after-poison");
#endif
  parser.set_cur_help_group("H");
  EXPECT_TRUE(parser.add_option("c", "shown", OPT_ENUM, "deprecated"));
  parser.set_cur_help_group("G");
  EXPECT_TRUE(parser.add_option("d", OPT_FLAG, "fifth"));
  EXPECT_TRUE(parser.add_enum_value("c", "v", 1, "one") && parser.add_enum_value("c", "V", 1, ""));
  EXPECT_FALSE(parser.add_enum_value("c", "v", 2, "two"));
  EXPECT_FALSE(parser.add_enum_value("a", "v", 1, "one") || parser.add_enum_value("b", "v", 1, ""));
  EXPECT_TRUE(parser.set_option_help("d", "") && !parser.set_option_help("b", "absent"));
  EXPECT_EQ(parser.get_option_help("c") + parser.get_option_help("b"), "deprecated");
  EXPECT_EQ(help_of(parser, PRINT_ORDER_GROUP_NAME, PRINT_STYLE_TAB),
            "\n -a=INT\tfirst\n\nG\n -d\t\n\n"
            "H\n -shown=ENUM\tdeprecated\nPossible values:\n- V : \n- v : one\n");
  EXPECT_TRUE(parser.get_option("c")->index == 3 && parser.get_option("d")->index == 4);
}

TEST(OptionParser, ResetKeepsOnlyTheStyles) {
  OptionParser used(BOOL_STYLE_PLUS_MINUS, true);
  OptionParser fresh(BOOL_STYLE_PLUS_MINUS, true);
  used.add_option("old", OPT_BOOL, "");
  for (const char* const group : {"G", "H"}) used.set_cur_help_group(group);
  used.reset();
  for (OptionParser* const parser : {&used, &fresh}) {
    parser->add_option("a", OPT_BOOL, "");
    parser->set_cur_help_group("H");
    parser->add_option("b", OPT_BOOL, "");
    parser->get_option("a")->group = 2;  // has no name
    Strings remaining;
    parse_args(*parser, {"+a", "+old"}, &remaining);
    EXPECT_EQ(remaining, Strings{"+old"});
  }
  EXPECT_EQ(view_of(used), view_of(fresh));
}

TEST(OptionParser, GettersWriteNothingUnlessTheOptionIsSet) {
  SampleParser parser;
  OptionType type = OPT_ENUM;
  int number = 1;
  std::string text = "before";
  EXPECT_FALSE(parser.get_int_option("count", &number) || parser.get_str_option("out", &text));
  EXPECT_TRUE(!parser.get_flag_option("absent") && number == 1 && text == "before");
  EXPECT_TRUE(parser.has_option("out", nullptr) && !parser.has_option("absent", &type));
  EXPECT_TRUE(type == OPT_ENUM && parser.has_option("dump", &type) && type == OPT_FLAG);
  parser.get_option("out")->is_set = true;  // by hand, without a value
  EXPECT_TRUE(parser.get_flag_option("out") && parser.get_bool_style() == BOOL_STYLE_VALUE);
  EXPECT_EQ(outcome_of(parser, [] {}), "out =");
}

TEST(OptionParser, ErrorsKeepTheirFieldsAndCallTheHook) {
  announced.clear();
  const OptionParser::error error("message", "name", {"value\0", 6}, "argument");
  const OptionParser::error copy(error);
  EXPECT_EQ(copy.name + copy.value + copy.command_line, std::string("namevalue\0argument", 18));
  EXPECT_STREQ(copy.what(), "message: name, value: value");
  EXPECT_EQ(announced, "message;");
}

const std::string long_text(40, 'x');  // too long for a string to hold without allocating

// A parser, and the objects that its members write to.
struct State : SampleParser {
  // The next insertion makes the table grow from 31 to 73 buckets, which swaps A (65) and z (122).
  State() {
    for (char key : std::string("Aabcdefghijkz")) add_option(std::string(1, key), OPT_ENUM, "");
    for (const char end : {'1', '2'}) {
      add_option(long_text + end, OPT_FLAG, "");
      parse_option(long_text + end, "", 0);
    }
    parse_option("out", "text", 0);
    keys.insert("out");
  }
  std::string view() {
    return testing::PrintToString(std::tuple(remaining, text, Strings(keys.begin(), keys.end()))) +
           view_of(*this);
  }
  Strings remaining;
  std::string text = "before";
  hsh::HashSet<std::string> keys;
};

// Every member leaves everything unchanged, and succeeds when it is called again.
TEST(OptionParser, OutOfMemoryChangesNothing) {
  const std::pair<int, void (*)(State&)> rows[] = {
      {__LINE__, [](State& s) { s.add_option(long_text, OPT_STR, long_text); }},
      {__LINE__, [](State& s) { s.set_cur_help_group(long_text); }},
      {__LINE__, [](State& s) { s.add_enum_value("mode", long_text, 1, long_text); }},
      {__LINE__, [](State& s) { s.add_enum_value("a", long_text, 1, long_text); }},
      {__LINE__, [](State& s) { s.set_option_help("out", long_text); }},
      {__LINE__, [](State& s) { s.parse_option("out", long_text, 0); }},
      {__LINE__, [](State& s) { s.parse_option("ratio", std::string(40, '1'), 0); }},
      {__LINE__, [](State& s) { *s.get_option("out") = *s.get_option("mode"); }},
      {__LINE__, [](State& s) { *s.get_option("mode") = *s.get_option("out"); }},
      {__LINE__, [](State& s) { help_of(s, PRINT_ORDER_GROUP_NAME, PRINT_STYLE_ALIGNED); }},
      {__LINE__, [](State& s) { s.get_options_set(s.keys); }},
      {__LINE__, [](State& s) { s.get_str_option("out", &s.text); }},
      {__LINE__, [](State& s) { parse_args(s, {"-out=" + long_text}, &s.remaining); }},
      {__LINE__, [](State& s) { s.text = *str::get_tokenizer(long_text, ",", 0).begin(); }},
      {__LINE__, [](State&) { OptionParser::error(long_text, long_text, long_text, long_text); }},
  };
  State state;
  const std::string before = state.view();
  EXPECT_FALSE(state.add_option("A", OPT_STR, ""));  // nor does a duplicate
  EXPECT_EQ(state.view(), before);
  for (const auto& row : rows) {
    const testing::ScopedTrace trace(__FILE__, row.first, "this row");
    State done;
    row.second(done);
    done.add_option("next", OPT_FLAG, "");
    const auto act = [&](const auto& s) { row.second(*s); };
    run_out_of_memory(std::make_unique<State>, act, [&](const auto& s) {
      EXPECT_EQ(s->view(), before);
      row.second(*s);
      s->add_option("next", OPT_FLAG, "");
      EXPECT_EQ(s->view(), done.view());
    });
  }
}

}  // namespace norq
