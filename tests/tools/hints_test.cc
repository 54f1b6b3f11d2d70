#include "norq/tools/hints.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <set>

namespace norq {

// The hint on what is wrong with an argument or, without a sign, with a line of a file.
std::string hint(OptionParser& options, const std::string& written) {
  const std::string file_name = testing::TempDir() + "hints_test.conf";
  const char* const argv[] = {"program", written.c_str()};
  std::vector<std::string> rest;
  try {
    if (written[0] == '-' || written[0] == '+') options.parse_args(2, argv, rest, 0);
    std::ofstream(file_name) << written << '\n';
    options.parse_config_file(file_name, 0);
  } catch (const Exception& refusal) {
    return explain(options, refusal).substr(std::string(refusal.what()).size());
  }
  return "accepted";
}

TEST(Hints, SayHowToWriteAnOption) {
  struct Row {
    int line;
    OptionBoolStyle style;
    const char* written;
    const char* expected;
  };
  constexpr OptionBoolStyle no_prefix = BOOL_STYLE_NO_PREFIX;
  constexpr OptionBoolStyle plus_minus = BOOL_STYLE_PLUS_MINUS;
  for (const Row& row : std::initializer_list<Row>{
           {__LINE__, no_prefix, "-widht=3", " (did you mean -width=INT?)"},
           {__LINE__, no_prefix, "--no_verbose", " (did you mean -no_verbose?)"},
           {__LINE__, no_prefix, "-verbose=1", " (write -verbose or -no_verbose)"},
           {__LINE__, no_prefix, "-no_out=x", " (write -out=STR)"},
           {__LINE__, no_prefix, "-dump=1", " (write -dump)"},
           {__LINE__, no_prefix, "-mode", " (write -mode=ENUM, one of: fast, full)"},
           {__LINE__, no_prefix, "-mode=x", " (-mode takes one of: fast, full)"},
           {__LINE__, plus_minus, "--verbose", " (did you mean +verbose?)"},
           {__LINE__, plus_minus, "-verbos", " (did you mean -verbose?)"},
           {__LINE__, plus_minus, "-width=3", " (write +width=INT)"},
           {__LINE__, no_prefix, "widht = 3", " (did you mean width?)"},
           {__LINE__, no_prefix, "verbose = on", " (verbose takes true or false)"},
           {__LINE__, no_prefix, "dump = 1", " (write dump=)"},
           {__LINE__, no_prefix, "a = (unknown option: ", " (a takes an integer, such as -7)"},
           {__LINE__, no_prefix, "a, value: b = ?", " (a, value: b takes digits only, such as 7)"},
       }) {
    const testing::ScopedTrace trace(__FILE__, row.line, row.written);
    OptionParser options(row.style, false);
    options.add_option("verbose", OPT_BOOL, "");
    for (const char* const key : {"width", "a, value: b"}) options.add_option(key, OPT_UINT, "");
    options.add_option("dump", OPT_FLAG, "");
    options.add_option("key", "out", OPT_STR, "");
    options.add_option("mode", OPT_ENUM, "");
    for (const char* const name : {"full", "fast"}) options.add_enum_value("mode", name, 0, "");
    options.add_option("a", OPT_INT, "");
    EXPECT_EQ(hint(options, row.written), row.expected);
  }
}

// By the recurrence of the restricted edit distance, from the ends of the names.
std::size_t distance(const std::string& a, const std::string& b) {
  if (a.empty() || b.empty()) return a.size() + b.size();
  const std::size_t replaced = distance(a.substr(1), b.substr(1)) + (a[0] == b[0] ? 0 : 1);
  const std::size_t moved = std::min(distance(a.substr(1), b), distance(a, b.substr(1))) + 1;
  const bool exchanged = a.size() > 1 && b.size() > 1 && a[0] == b[1] && a[1] == b[0];
  return std::min({replaced, moved, exchanged ? distance(a.substr(2), b.substr(2)) + 1 : moved});
}

TEST(Hints, NameTheNearest) {
  std::mt19937 random(1);
  const std::string bytes = "abcacbbacabcbabaccab";
  const auto make_name = [&] { return bytes.substr(random() % 13, 1 + random() % 7); };
  for (int round = 0; round < 300; ++round) {
    OptionParser options(BOOL_STYLE_VALUE, false);
    const std::string written = make_name();
    std::set<std::pair<std::size_t, std::string>> near;
    for (int i = 0; i < 9; ++i) {
      const std::string name = make_name();
      const std::size_t longer = std::max(name.size(), written.size());
      const std::size_t edits = distance(written, name);
      const bool is_near = edits == 1 ? longer > 1 : edits * 3 <= longer;
      if (edits > 0 && options.add_option(name, OPT_FLAG, "") && is_near) near.emplace(edits, name);
    }
    std::string expected;
    while (near.size() > 3) near.erase(std::prev(near.end()));
    for (const auto& [edits, name] : near) {
      expected += (expected.empty() ? " (did you mean -" : " or -") + name;
    }
    ASSERT_EQ(hint(options, "-" + written), expected + (near.empty() ? "" : "?)"));
  }
}

}  // namespace norq
