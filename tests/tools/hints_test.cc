#include "norq/tools/hints.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <random>

namespace norq {

// The hint on what `act` throws, without the parentheses.
template <class Act>
std::string hint(OptionParser& options, Act act) {
  try {
    act();
  } catch (const Exception& refusal) {
    const std::string before = refusal.what();
    const std::string text = explain(options, refusal);
    if (text == before) return "";
    EXPECT_EQ(text.substr(0, before.size() + 2) + text.back(), before + " ()");
    return text.substr(before.size() + 2, text.size() - before.size() - 3);
  }
  return "nothing was thrown";
}

std::string argument_hint(OptionParser& options, const std::string& argument) {
  const char* const argv[] = {"program", argument.c_str()};
  std::vector<std::string> rest;
  return hint(options, [&] { options.parse_args(2, argv, rest, 0); });
}

void add_options(OptionParser& options) {
  options.add_option("verbose", OPT_BOOL, "");
  options.add_option("dump", OPT_FLAG, "");
  options.add_option("width", OPT_UINT, "");
  options.add_option("key", "out", OPT_STR, "");
  options.add_option("mode", OPT_ENUM, "");
  options.add_enum_value("mode", "full", 1, "");
  options.add_enum_value("mode", "fast", 2, "");
  options.add_option("a", OPT_INT, "");
  options.add_option("a, value: b", OPT_FLOAT, "");
}

struct Row {
  int line;
  OptionBoolStyle style;
  const char* written;
  const char* expected;
};

TEST(Hints, OfArguments) {
  for (const Row& row : std::initializer_list<Row>{
           {__LINE__, BOOL_STYLE_NO_PREFIX, "-widht=3", "did you mean -width=INT?"},
           {__LINE__, BOOL_STYLE_NO_PREFIX, "--dump", "did you mean -dump?"},
           {__LINE__, BOOL_STYLE_NO_PREFIX, "-no_verbos", "did you mean -no_verbose?"},
           {__LINE__, BOOL_STYLE_NO_PREFIX, "--no_verbose", "did you mean -no_verbose?"},
           {__LINE__, BOOL_STYLE_NO_PREFIX, "-key=x", ""},
           {__LINE__, BOOL_STYLE_NO_PREFIX, "-verbose=1", "write -verbose or -no_verbose"},
           {__LINE__, BOOL_STYLE_NO_PREFIX, "-no_out=x", "write -out=STR"},
           {__LINE__, BOOL_STYLE_NO_PREFIX, "-dump=1", "write -dump"},
           {__LINE__, BOOL_STYLE_NO_PREFIX, "-mode", "write -mode=ENUM, one of: fast, full"},
           {__LINE__, BOOL_STYLE_NO_PREFIX, "-mode=x", "-mode takes one of: fast, full"},
           {__LINE__, BOOL_STYLE_PLUS_MINUS, "--verbose", "did you mean +verbose?"},
           {__LINE__, BOOL_STYLE_PLUS_MINUS, "-verbos", "did you mean -verbose?"},
           {__LINE__, BOOL_STYLE_PLUS_MINUS, "-width=3", "write +width=INT"},
           {__LINE__, BOOL_STYLE_VALUE, "-verbose", "write -verbose=BOOL, true or false"},
       }) {
    const testing::ScopedTrace trace(__FILE__, row.line, row.written);
    OptionParser options(row.style, false);
    add_options(options);
    EXPECT_EQ(argument_hint(options, row.written), row.expected);
  }
}

TEST(Hints, OfFiles) {
  const std::string file_name = testing::TempDir() + "hints_test.conf";
  OptionParser options(BOOL_STYLE_NO_PREFIX, false);
  add_options(options);
  for (const Row& row : std::initializer_list<Row>{
           {__LINE__, {}, "widht = 3", "did you mean width?"},
           {__LINE__, {}, "verbose = on", "verbose takes true or false"},
           {__LINE__, {}, "dump = 1", "write dump="},
           {__LINE__, {}, "width =", "write width=INT"},
           {__LINE__, {}, "a = (unknown option: ", "a takes an integer, such as -7"},
           {__LINE__,
            {},
            "a, value: b = -1",
            "a, value: b takes digits with or without a point, such as 0.5"},
       }) {
    const testing::ScopedTrace trace(__FILE__, row.line, row.written);
    std::ofstream(file_name) << row.written << '\n';
    EXPECT_EQ(hint(options, [&] { options.parse_config_file(file_name, 0); }), row.expected);
  }
  EXPECT_EQ(hint(options, [&] { options.parse_option("kye", "", 0); }), "did you mean key?");
}

// By the recurrence of the restricted edit distance, from the ends of the names.
std::size_t distance(const std::string& a, const std::string& b) {
  if (a.empty() || b.empty()) return a.size() + b.size();
  const std::size_t replaced = distance(a.substr(1), b.substr(1)) + (a[0] == b[0] ? 0 : 1);
  const std::size_t moved = std::min(distance(a.substr(1), b), distance(a, b.substr(1))) + 1;
  const bool exchanged = a.size() > 1 && b.size() > 1 && a[0] == b[1] && a[1] == b[0];
  return std::min({replaced, moved, exchanged ? distance(a.substr(2), b.substr(2)) + 1 : moved});
}

TEST(Hints, AreTheNearestNames) {
  std::mt19937 random(1);
  const auto make_name = [&] {
    std::string name(1 + random() % 7, 'a');
    for (char& byte : name) byte = static_cast<char>('a' + random() % 3);
    return name;
  };
  for (int round = 0; round < 300; ++round) {
    OptionParser options(BOOL_STYLE_VALUE, false);
    const std::string written = make_name();
    std::vector<std::pair<std::size_t, std::string>> near;
    for (int i = 0; i < 9; ++i) {
      const std::string name = make_name();
      const std::size_t longer = std::max(name.size(), written.size());
      const std::size_t edits = distance(written, name);
      if (edits == 0 || !options.add_option(name, OPT_FLAG, "")) continue;
      if (longer > 1 && edits <= std::max<std::size_t>(longer / 3, 1))
        near.emplace_back(edits, name);
    }
    std::sort(near.begin(), near.end());
    std::string expected;
    for (std::size_t i = 0; i < std::min<std::size_t>(near.size(), 3); ++i) {
      expected += (i == 0 ? "did you mean -" : " or -") + near[i].second;
    }
    ASSERT_EQ(argument_hint(options, "-" + written), expected + (near.empty() ? "" : "?"));
  }
}

}  // namespace norq
