#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <new>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include "allocation_gate.h"
#include "norq/options/option_parser.h"
#include "sample_parser.h"

namespace norq {
namespace {

const std::string long_text(100, 'x');  // no short-string buffer holds it
const std::string other_text(90, 'y');

struct DropBytes : std::streambuf {
  int overflow(int byte) override { return byte == EOF ? 0 : byte; }
};

// All that a host can see of a parser.
std::string listing_of(OptionParser& parser) {
  std::ostringstream out;
  parser.print_help(out, "", PRINT_ORDER_GROUP_NAME, PRINT_STYLE_TAB);
  parser.print_help(out, "", PRINT_ORDER_INDEX, PRINT_STYLE_TAB);
  return out.str() + state_of(parser);
}

TEST(OutOfMemory, EveryMemberLeavesTheParserAsItWas) {
  const std::string path = "out_of_memory_test.tmp";
  FILE* const file = std::fopen(path.c_str(), "w");
  std::fputs(("out = " + other_text + "\n").c_str(), file);
  std::fclose(file);
  const std::string argument = "-out=" + other_text;
  const char* const argv[] = {"host", argument.c_str()};
  const char* const plain_argv[] = {"host", other_text.c_str()};
  std::vector<std::string> rest;
  hsh::HashSet<std::string> keys;
  DropBytes nowhere;
  std::ostream out(&nowhere);

  const struct {
    const char* name;
    std::function<void(OptionParser&)> call;
  } cases[] = {
      {"add_option", [&](OptionParser& p) { p.add_option(long_text, OPT_STR, other_text); }},
      {"add_enum_value",
       [&](OptionParser& p) { p.add_enum_value("mode", long_text, 1, long_text); }},
      {"first value", [&](OptionParser& p) { p.add_enum_value("bare", long_text, 1, long_text); }},
      {"set_option_help", [&](OptionParser& p) { p.set_option_help("count", long_text); }},
      {"set_cur_help_group",
       [&](OptionParser& p) {
         p.set_cur_help_group(long_text);
         p.add_option("in group", OPT_FLAG, "");  // to show the group
       }},
      {"parse_option", [&](OptionParser& p) { p.parse_option("out", other_text, 0); }},
      {"parse_args", [&](OptionParser& p) { p.parse_args(2, argv, rest, 0); }},
      {"plain argument", [&](OptionParser& p) { p.parse_args(2, plain_argv, rest, 0); }},
      {"parse_config_file", [&](OptionParser& p) { p.parse_config_file(path, 0); }},
      {"get_options_set", [&](OptionParser& p) { p.get_options_set(keys); }},
      {"get_str_option",
       [&](OptionParser& p) {
         std::string text;
         p.get_str_option("out", &text);
       }},
      {"print_help",
       [&](OptionParser& p) { p.print_help(out, "", PRINT_ORDER_NAME, PRINT_STYLE_ALIGNED); }},
      {"copy of a record", [&](OptionParser& p) { *p.get_option("mode") = *p.get_option("out"); }},
      {"copy of an enumeration",
       [&](OptionParser& p) { *p.get_option("out") = *p.get_option("mode"); }},
  };
  for (const auto& c : cases) {
    // With 16 options the pool needs a chunk for the next, with 22 the table more buckets.
    for (const int options : {16, 22}) {
      OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
      add_sample_options(parser);
      parser.add_option("bare", OPT_ENUM, "");
      for (int i = 6; i < options; ++i) parser.add_option(std::to_string(i), OPT_INT, "");
      parser.parse_option("out", long_text, 0);
      parser.parse_option("count", "1", 0);
      const std::string before = listing_of(parser);

      bool done = false;
      for (long n = 0; !done; ++n) {
        try {
          allocations_left = n;
          c.call(parser);
          done = allocations_left >= 0;
        } catch (const std::bad_alloc&) {
        } catch (const Exception& exception) {  // what stops a statement is reported as its reason
          EXPECT_NE(std::string(exception.what()).find("bad_alloc"), std::string::npos) << c.name;
        }
        allocations_left = -1;
        if (!done) {
          ASSERT_EQ(listing_of(parser), before) << c.name << ", allocation " << n;
          ASSERT_EQ(rest.size() + keys.size(), 0u) << c.name << ", allocation " << n;
        }
        ASSERT_LT(n, 200) << c.name;
      }
      rest.clear();
      keys.clear(false);
    }
  }
  std::remove(path.c_str());
}

}  // namespace
}  // namespace norq
