#include <gtest/gtest.h>

#include <fstream>
#include <locale>
#include <string>

#include "norq/options/option_parser.h"
#include "sample_parser.h"

namespace norq {
namespace {

// A file of this test's own, gone when the test ends.
class ConfigFile : public testing::Test {
 protected:
  ~ConfigFile() override { std::remove(path.c_str()); }

  // What the file sets, after the refusal, if any, less what all refusals start with.
  std::string outcome_of(const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
    OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
    add_sample_options(parser);
    std::string refusal = refusal_of([&] { parser.parse_config_file(path, 0); });
    const std::string where = " in config file: " + path;
    const std::size_t at = refusal.find(where);
    if (at != std::string::npos) refusal.erase(at, where.size());
    return refusal.empty() ? state_of(parser) : refusal + " " + state_of(parser);
  }

  const std::string path = std::string("config_file_test.") +
                           testing::UnitTest::GetInstance()->current_test_info()->name() + ".tmp";
};

TEST_F(ConfigFile, Statements) {
  const std::string unknown = "invalid line 1 (unknown option: ";
  const std::string bad = "invalid line 1 (bad value for option: ";
  const struct {
    std::string bytes;
    std::string outcome;
  } cases[] = {
      {"", ""},
      {"\n \t\v\f\r\n# count = 1\n  #\n", ""},
      {"count=3", "count=3 "},
      {"\tcount  =  3   \r\n", "count=3 "},
      {"\v\fcount=3\f\v\n", "count=3 "},
      {"out = a=b", "out=a=b "},
      {"out =", "out= "},
      {"out = a # b", "out=a # b "},
      {"out = C:\\tmp", "out=C:\\tmp "},
      {"out = a \t b", "out=a \t b "},
      {"out = \xa0\x85 \n", "out=\xa0\x85 "},
      {"  # out = 1\nout = 2", "out=2 "},
      {"dump =", "dump "},
      {"dump", "invalid line 1 "},
      {"= 5", unknown + ", value: 5) "},
      {"=", unknown + ", value: ) "},
      {"verbose = true", "verbose=true "},
      {"verbose = TRUE", bad + "verbose, value: TRUE) "},
      {"-verbose = true", unknown + "-verbose, value: true) "},
      {"no_verbose = true", unknown + "no_verbose, value: true) "},
      {"mode = fast", "mode=7 "},
      {"count = 1\ncount = 2\n", "count=2 "},
      {"count = 1\r\n\r\ncount = x\r\ncount = 3",
       "invalid line 3 (bad value for option: count, value: x) count=1 "},
      {"count = 1\n#\n\nverbose\ncount = 2\n", "invalid line 4 count=1 "},
      {std::string(5, '\0'), "invalid line 1 "},
      {std::string("out=a\0b\n", 8), "out=a "},
      {"\xef\xbb\xbf"
       "count=1",
       unknown + "\xef\xbb\xbf"
                 "count, value: 1) "},
  };
  for (const auto& c : cases) EXPECT_EQ(outcome_of(c.bytes), c.outcome) << c.bytes;
}

TEST_F(ConfigFile, ContinuedLines) {
  const struct {
    std::string bytes;
    std::string outcome;
  } cases[] = {
      {"out = alpha \\\n# comment \\\n\n   beta\n", "out=alpha beta "},
      {"out = a\\\nb\\ \t\r\nc", "out=a b c "},
      {"out = a\\\\\nb", "out=a\\ b "},
      {"out = a\\ b", "out=a\\ b "},
      {"count \\\n = \\\n 3", "count=3 "},
      {"out = a \\\n\n# the end\n", "out=a "},
      {"nothing \\\n\n# the end\n", "invalid line 3 "},
      {"nothing \\\n\nhere\n\n", "invalid line 3 "},
      {"\\", ""},
      {"\\\n\\\n", "invalid line 2 "},
      {"\\\ncount = 1", "count=1 "},
      {"count \\\n# = 9\n = \\\n x\ncount = 3",
       "invalid line 4 (bad value for option: count, value: x) "},
  };
  for (const auto& c : cases) EXPECT_EQ(outcome_of(c.bytes), c.outcome) << c.bytes;
}

TEST_F(ConfigFile, FilesThatCannotBeReadAsSuch) {
  OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
  EXPECT_EQ(refusal_of([&] { parser.parse_config_file("no/such/file", 0); }),
            "unable to open config file: no/such/file");
  EXPECT_EQ(refusal_of([&] { parser.parse_config_file("", 0); }), "unable to open config file: ");
  EXPECT_EQ(refusal_of([&] { parser.parse_config_file(".", 0); }), "");  // a directory has no lines
}

TEST_F(ConfigFile, RefusalsAreNotErrorsOfASetting) {
  std::ofstream(path) << "absent = 1";
  OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
  try {
    parser.parse_config_file(path, 0);
    FAIL();
  } catch (const OptionParser::error&) {
    FAIL() << "an error of a setting";
  } catch (const Exception& exception) {
    EXPECT_EQ(exception.what(),
              "invalid line 1 in config file: " + path + " (unknown option: absent, value: 1)");
  }
}

TEST_F(ConfigFile, KeysCountNotNames) {
  std::ofstream(path) << "key = 1\n";
  OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
  parser.add_option("key", "name", OPT_INT, "");
  parser.parse_option("key", "0", 1);
  parser.parse_config_file(path, 2);
  EXPECT_EQ(parser.get_option("key")->value.int_value, 0);  // held by its smaller level
  parser.parse_config_file(path, 1);
  EXPECT_EQ(parser.get_option("key")->value.int_value, 1);
}

TEST_F(ConfigFile, LongLines) {
  const std::string text(10'000'000, 'x');
  EXPECT_EQ(outcome_of("out = " + text + "\\\n" + text), "out=" + text + " " + text + " ");
  EXPECT_EQ(outcome_of("count = " + std::string(10'000'000, '9')), "count=2147483647 ");
  EXPECT_EQ(outcome_of(text), "invalid line 1 ");
}

struct GroupThousands : std::numpunct<char> {
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\1"; }
};

TEST_F(ConfigFile, LineNumbersAreTheSameInEveryLocale) {
  const std::locale before = std::locale::global(std::locale(std::locale(), new GroupThousands));
  const std::string outcome = outcome_of(std::string(1233, '\n') + "count\n");
  std::locale::global(before);
  EXPECT_EQ(outcome, "invalid line 1234 ");
}

}  // namespace
}  // namespace norq
