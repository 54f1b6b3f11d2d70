#include "norq/options/option_parser.h"

#include <gtest/gtest.h>

#include <set>

#include "sample_parser.h"

namespace norq {
namespace {

TEST(OptionParser, ADuplicateChangesNothingAndIndicesAreNotReused) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  EXPECT_TRUE(parser.add_option("a", OPT_INT, "first"));
  parser.set_cur_help_group("G");
  EXPECT_FALSE(parser.add_option("a", "other", OPT_STR, "second"));
  EXPECT_TRUE(parser.add_option("b", "shown", OPT_STR, ""));
  EXPECT_TRUE(parser.del_option("b"));
  EXPECT_FALSE(parser.del_option("b"));
  EXPECT_TRUE(parser.add_option("d", OPT_STR, ""));

  const Option* const a = parser.get_option("a");
  EXPECT_EQ(a->name + "," + a->help, "a,first");
  EXPECT_EQ(a->type, OPT_INT);
  EXPECT_EQ(a->group, 0);
  EXPECT_EQ(a->index, 1);
  EXPECT_EQ(parser.get_option("d")->index, 3);
  EXPECT_EQ(parser.get_option("b"), nullptr);
}

TEST(OptionParser, GroupsAreNumberedByFirstUse) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  int expected[] = {1, 2, 1, 3};
  int i = 0;
  for (const char* group : {"G", "H", "G", ""}) {
    parser.set_cur_help_group(group);
    const std::string key = std::to_string(i);
    parser.add_option(key, OPT_FLAG, "");
    EXPECT_EQ(parser.get_option(key)->group, expected[i++]) << group;
  }
}

TEST(OptionParser, EnumValuesBelongToEnumerationsAndKeepTheFirst) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  parser.add_option("mode", OPT_ENUM, "");
  parser.add_option("count", OPT_INT, "");
  EXPECT_FALSE(parser.add_enum_value("absent", "v", 1, ""));
  EXPECT_FALSE(parser.add_enum_value("count", "v", 1, ""));
  EXPECT_EQ(parser.get_option("count")->enum_values, nullptr);
  EXPECT_TRUE(parser.add_enum_value("mode", "v", 1, "one"));
  EXPECT_FALSE(parser.add_enum_value("mode", "v", 2, "two"));
  EXPECT_TRUE(parser.add_enum_value("mode", "V", 1, ""));
  EXPECT_EQ(parser.get_option("mode")->enum_values->at("v"), std::make_pair(1, std::string("one")));
  EXPECT_EQ(parser.get_option("mode")->enum_values->size(), 2u);
}

TEST(OptionParser, GettersWriteOnlyWhatTheyServe) {
  const struct {
    OptionType type;
    const char* text;
    const char* served;  // by the getters of bool, int, float, str
  } cases[] = {
      {OPT_BOOL, "true", "1000"}, {OPT_UINT, "3", "0100"}, {OPT_INT, "-3", "0100"},
      {OPT_FLOAT, "3", "0010"},   {OPT_STR, "s", "0001"},  {OPT_FLAG, "", "0000"},
      {OPT_ENUM, "e", "0100"},
  };
  for (const auto& c : cases) {
    OptionParser parser(BOOL_STYLE_VALUE, false);
    parser.add_option("key", c.type, "");
    parser.add_enum_value("key", "e", 3, "");
    for (const bool set : {false, true}) {
      if (set) parser.parse_option("key", c.text, 0);
      bool as_bool = false;
      int as_int = 99;
      float as_float = 99;
      std::string as_str = "99";
      std::string served;
      served += parser.get_bool_option("key", &as_bool) ? '1' : '0';
      served += parser.get_int_option("key", &as_int) ? '1' : '0';
      served += parser.get_float_option("key", &as_float) ? '1' : '0';
      served += parser.get_str_option("key", &as_str) ? '1' : '0';
      const std::string expected = set ? c.served : "0000";
      EXPECT_EQ(served, expected) << c.type;
      EXPECT_EQ(as_bool, expected[0] == '1') << c.type;
      EXPECT_EQ(as_int, expected[1] == '0' ? 99 : c.type == OPT_INT ? -3 : 3) << c.type;
      EXPECT_EQ(as_float, expected[2] == '1' ? 3 : 99) << c.type;
      EXPECT_EQ(as_str, expected[3] == '1' ? "s" : "99") << c.type;
      EXPECT_EQ(parser.get_flag_option("key"), set) << c.type;
    }
  }
}

TEST(OptionParser, AbsentKeysAreReportedByTheResult) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  for (const char* other : {"", "other"}) {
    if (*other != '\0') parser.add_option(other, OPT_BOOL, "");
    OptionType type = OPT_FLOAT;
    EXPECT_FALSE(parser.has_option("key", &type));
    EXPECT_EQ(type, OPT_FLOAT);
    EXPECT_FALSE(parser.set_option_help("key", "h"));
    EXPECT_EQ(parser.get_option_help("key"), "");
    EXPECT_FALSE(parser.get_flag_option("key"));
    EXPECT_FALSE(parser.get_bool_option("key", nullptr));
  }
  OptionType type = OPT_FLOAT;
  EXPECT_TRUE(parser.has_option("other", &type));
  EXPECT_EQ(type, OPT_BOOL);
  EXPECT_TRUE(parser.has_option("other", nullptr));
  EXPECT_TRUE(parser.set_option_help("other", "h"));
  EXPECT_EQ(parser.get_option_help("other"), "h");
}

TEST(OptionParser, RefusedSettingsNameKeyAndValue) {
  OptionParser parser(BOOL_STYLE_NO_PREFIX, true);
  parser.add_option("n", "shown", OPT_INT, "");
  const struct {
    const char *key, *value, *text;
  } cases[] = {
      {"x", "1", "unknown option: x, value: 1"},
      {"n", "abc", "bad value for option: n, value: abc"},
      {"shown", "", "unknown option: shown, value: "},
  };
  for (const auto& c : cases) {
    try {
      parser.parse_option(c.key, c.value, 0);
      ADD_FAILURE() << c.text;
    } catch (const OptionParser::error& error) {
      const OptionParser::error copy(error);
      EXPECT_STREQ(copy.what(), c.text);
      EXPECT_EQ(copy.name, c.key);
      EXPECT_EQ(copy.value, c.value);
      EXPECT_EQ(copy.command_line, "");
    }
  }
  EXPECT_FALSE(parser.get_flag_option("n"));
}

TEST(OptionParser, OptionsSetAreAddedToTheSet) {
  OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
  add_sample_options(parser);
  parser.parse_option("count", "1", 0);
  parser.parse_option("dump", "", 0);
  hsh::HashSet<std::string> out;
  out.insert("z");
  parser.get_options_set(out);
  EXPECT_EQ(std::set<std::string>(out.begin(), out.end()),
            (std::set<std::string>{"count", "dump", "z"}));
}

TEST(OptionParser, ResetKeepsTheStylesOnly) {
  OptionParser parser(BOOL_STYLE_PLUS_MINUS, true);
  parser.set_cur_help_group("G");
  add_sample_options(parser);
  parser.parse_option("out", "text", 0);
  parser.reset();
  EXPECT_EQ(parser.get_option("out"), nullptr);
  parser.add_option("verbose", OPT_BOOL, "");
  EXPECT_EQ(parser.get_option("verbose")->index, 1);
  EXPECT_EQ(parser.get_option("verbose")->group, 0);
  parser.set_cur_help_group("H");
  parser.add_option("count", OPT_INT, "");
  EXPECT_EQ(parser.get_option("count")->group, 1);

  const char* const argv[] = {"host", "+verbose", "+unknown"};
  std::vector<std::string> rest;
  parser.parse_args(3, argv, rest, 0);
  EXPECT_EQ(state_of(parser), "verbose=true ");
  EXPECT_EQ(rest, std::vector<std::string>{"+unknown"});
}

TEST(OptionParser, RecordsStayWhereTheyAreWhileTheTableGrows) {
  OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
  parser.add_option("first", OPT_INT, "");
  Option* const first = parser.get_option("first");
  for (int i = 0; i < 1000; ++i) parser.add_option(std::to_string(i), OPT_INT, "");
  EXPECT_EQ(parser.get_option("first"), first);
}

}  // namespace
}  // namespace norq
