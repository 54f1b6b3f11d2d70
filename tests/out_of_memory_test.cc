#include <cstdio>
#include <functional>

#include "testing.h"

extern long allocations_left;  // before one fails; below 0 none fails

namespace norq {

const std::string long_text(100, 'x');  // no short-string buffer holds it
const std::string other_text(90, 'y');

// All that a host can see of a parser.
std::string listing_of(OptionParser& parser) {
  return help_of(parser, PRINT_ORDER_INDEX, PRINT_STYLE_TAB) + state_of(parser);
}

TEST(OutOfMemory, EveryMemberLeavesTheParserAsItWas) {
  const std::string path = "out_of_memory_test.conf";
  std::ofstream(path) << "out = " << other_text << "\n";
  const std::string good = "-out=" + other_text, bad = "-count=" + other_text;
  Strings rest;
  const auto parse = [&](OptionParser& parser, const std::string& argument) {
    const char* const argv[] = {"host", argument.c_str()};
    parser.parse_args(2, argv, rest, 0);
  };
  hsh::HashSet<std::string> keys;
  keys.insert(long_text + "1");  // one of those that are set
  struct : std::streambuf {
    int overflow(int byte) override { return byte == EOF ? 0 : byte; }
  } nowhere;
  std::ostream out(&nowhere);
  std::string text;

  const std::pair<const char*, std::function<void(OptionParser&)>> cases[] = {
      {"add_option", [&](auto& p) { p.add_option(long_text, OPT_STR, other_text); }},
      {"add_enum_value", [&](auto& p) { p.add_enum_value("mode", long_text, 1, long_text); }},
      {"the first value", [&](auto& p) { p.add_enum_value("bare", long_text, 1, long_text); }},
      {"set_option_help", [&](auto& p) { p.set_option_help("count", long_text); }},
      {"set_cur_help_group",
       [&](auto& p) {
         p.set_cur_help_group(long_text);
         p.add_option("in group", OPT_FLAG, "");
         allocations_left = -1;
         const std::string by_group = help_of(p, PRINT_ORDER_GROUP_NAME, PRINT_STYLE_TAB);
         EXPECT_NE(by_group.find(long_text + "\n -in group"), std::string::npos);
         allocations_left = 0;  // no failure so far
       }},
      {"parse_option", [&](auto& p) { p.parse_option("out", other_text, 0); }},
      {"parse_args", [&](auto& p) { parse(p, good); }},
      {"a plain argument", [&](auto& p) { parse(p, other_text); }},
      {"parse_config_file", [&](auto& p) { p.parse_config_file(path, 0); }},
      {"get_options_set", [&](auto& p) { p.get_options_set(keys); }},
      {"get_str_option", [&](auto& p) { p.get_str_option("out", &text); }},
      {"print_help",
       [&](auto& p) { p.print_help(out, "", PRINT_ORDER_NAME, PRINT_STYLE_ALIGNED); }},
      {"a record's copy", [&](auto& p) { *p.get_option("mode") = *p.get_option("out"); }},
      {"a copy of values", [&](auto& p) { *p.get_option("out") = *p.get_option("mode"); }},
      {"a refusal",
       [&](auto& p) {
         try {
           parse(p, bad);
         } catch (const OptionParser::error& error) {
           const std::string whole = "bad option format: count, value: " + other_text;
           const long left = allocations_left;
           allocations_left = -1;  // the text may be had at any time
           EXPECT_EQ(std::string(error.what()).find(whole), 0u);
           allocations_left = left;
         }
       }},
  };
  for (const auto& [name, call] : cases) {
    // With 16 options the pool needs a chunk for the next, with 22 the table more buckets.
    for (const int options : {16, 22}) {
      OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
      add_sample_options(parser);
      parser.add_option("bare", OPT_ENUM, "");
      for (const char* key : {"1", "2", "3"}) {
        parser.add_option(long_text + key, OPT_FLAG, "");
        parser.parse_option(long_text + key, "", 0);
      }
      for (int i = 9; i < options; ++i) parser.add_option(std::to_string(i), OPT_INT, "");
      parser.parse_option("out", long_text, 0);
      const std::string before = listing_of(parser);
      for (long n = 0;; ++n) {
        bool failed = false;
        allocations_left = n;
        try {
          call(parser);
        } catch (const std::exception& exception) {  // of a file: with bad_alloc as the reason
          failed = std::string(exception.what()).find("bad_alloc") != std::string::npos;
        }
        const bool gate_shut = allocations_left < 0;
        allocations_left = -1;
        ASSERT_EQ(failed, gate_shut) << name << ", allocation " << n;
        if (!failed) break;
        ASSERT_EQ(listing_of(parser), before) << name << ", allocation " << n;
        ASSERT_EQ(rest.size() + keys.size() + text.size(), 1u) << name << ", allocation " << n;
      }
      rest.clear();
      for (const std::string& key : {long_text + "2", long_text + "3"}) keys.erase(key);
      keys.erase("out");
      text = std::string();
    }
  }
  std::remove(path.c_str());
}

}  // namespace norq
