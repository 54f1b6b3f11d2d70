#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <locale>

#include "../support.h"

namespace norq {

std::string write_file(const std::string& content) {
  const std::string path = testing::TempDir() + "norq-" + std::to_string(getpid()) + ".conf";
  std::ofstream(path) << content;
  return path;
}

// The outcome of parsing a file. Errors show its name as FILE.
std::string apply(const std::string& content) {
  SampleParser parser;
  const std::string path = write_file(content);
  std::string outcome = outcome_of(parser, [&] { parser.parse_config_file(path, 0); });
  std::remove(path.c_str());
  const std::size_t start = outcome.find(path);
  return start == std::string::npos ? outcome : outcome.replace(start, path.size(), "FILE");
}

TEST(ConfigFile, AppliesStatementsUpToAnError) {
  EXPECT_EQ(apply(" \t\r\n  # count = 1\n \t\v\f\rcount \t\v\f\r= \t\v\f\r3 \t\v\f\r\n"),
            "count = 3");
  EXPECT_EQ(apply("out = \xa0 a=b  \t# \x85"), "out = \xa0 a=b  \t# \x85");
  EXPECT_EQ(apply("count = 1\n#\n\r\ndump"), "invalid line 4 in config file: FILE; count = 1");
  EXPECT_EQ(apply("; = 5"), "invalid line 1 in config file: FILE (unknown option: ;, value: 5)");
  EXPECT_EQ(apply("out = alpha \t\\ \r\n# comment \\\n\n   beta\n"), "out = alpha beta");
  EXPECT_EQ(apply("out = a\\\\\n\\\nb"), "out = a\\  b");
  EXPECT_EQ(apply("\\\ncount \\\n = 3\ndump ="), "count = 3; dump =");
  EXPECT_EQ(apply("out = C:\\a \\\n# end\n"), "out = C:\\a");
  EXPECT_EQ(apply("count \\\n \\\n\n# end\n"), "invalid line 4 in config file: FILE");
  EXPECT_EQ(apply("\\"), "");
  EXPECT_EQ(apply("\\\n\\"), "invalid line 2 in config file: FILE");
}

TEST(ConfigFile, SetsOptionsByKeyAtItsLevelAndCallsTheHookOnErrors) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  parser.add_option("key", "name", OPT_INT, "");
  const std::string path = write_file("key = 1\nname = 2");
  const auto parse = [&] { parser.parse_config_file(path, 5); };
  announced.clear();
  EXPECT_EQ(outcome_of(parser, parse), "invalid line 2 in config file: " + path +
                                           " (unknown option: name, value: 2); key = 1");
  EXPECT_EQ(parser.get_option("key")->level, 5);
  std::remove(path.c_str());
  EXPECT_EQ(outcome_of(parser, parse), "unable to open config file: " + path + "; key = 1");
  EXPECT_EQ(announced, "unknown option;invalid line ;unable to open config file: ;");
  parser.parse_config_file("/", 5);  // can be opened but not read
}

TEST(ConfigFile, ReadsBytesInEveryGlobalLocaleAndNumbersManyLines) {
  struct Failing : std::codecvt<char, char, std::mbstate_t> {
    bool do_always_noconv() const noexcept override { return false; }
    result do_in(state_type& /*state*/, const char* /*from*/, const char* /*end*/, const char*&,
                 char* /*to*/, char* /*to_end*/, char*& /*to_next*/) const override {
      return error;
    }
  };
  const std::locale previous = std::locale::global(std::locale(std::locale(), new Failing));
  EXPECT_EQ(apply("out = a" + std::string(70000, '\n') + "verbose"),
            "invalid line 70001 in config file: FILE; out = a");
  std::locale::global(previous);
}

TEST(ConfigFile, OutOfMemoryKeepsWhatWasAppliedBefore) {
  const std::string path = write_file("count = 1\nout = " + std::string(40, 'x'));
  announced.clear();
  const auto act = [&](const auto& parser) { parser->parse_config_file(path, 0); };
  run_out_of_memory(std::make_unique<SampleParser>, act, [](const auto& parser) {
    EXPECT_EQ(std::string("count = 1").find(outcome_of(*parser, [] {})), 0u);
  });
  EXPECT_NE(announced.find("invalid line ;"), std::string::npos);
  std::remove(path.c_str());
}

}  // namespace norq
