#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "norq/options/option_parser.h"
#include "sample_parser.h"

namespace norq {
namespace {

using Arguments = std::vector<const char*>;

void parse(OptionParser& parser, Arguments arguments, std::vector<std::string>& rest,
           int level = 0) {
  arguments.insert(arguments.begin(), "-host");
  parser.parse_args(static_cast<int>(arguments.size()), arguments.data(), rest, level);
}

// The refusal, or what is set followed by the arguments that remain in brackets.
std::string outcome_of(OptionBoolStyle style, bool pass_unknown, const Arguments& arguments) {
  OptionParser parser(style, pass_unknown);
  add_sample_options(parser);
  std::vector<std::string> rest;
  const std::string refusal = refusal_of([&] { parse(parser, arguments, rest); });
  std::string outcome = refusal.empty() ? "" : refusal + " ";
  outcome += state_of(parser);
  for (const std::string& argument : rest) outcome += "[" + argument + "]";
  return outcome;
}

constexpr int any = -1;
constexpr int dash = -2;  // the styles in which '+' means nothing

std::vector<OptionBoolStyle> styles_of(int style) {
  if (style == any) return {BOOL_STYLE_NO_PREFIX, BOOL_STYLE_PLUS_MINUS, BOOL_STYLE_VALUE};
  if (style == dash) return {BOOL_STYLE_NO_PREFIX, BOOL_STYLE_VALUE};
  return {static_cast<OptionBoolStyle>(style)};
}

TEST(CommandLine, OneArgumentInEachStyle) {
  const std::string bad = "bad option format: ";
  const std::string unknown = "unknown option: ";
  const struct {
    int style;
    const char* argument;
    std::string outcome;  // of a refusal: all before ", command-line: "
  } cases[] = {
      {0, "-verbose", "verbose=true "},
      {0, "-verbose=", "verbose=true "},
      {0, "-no_verbose", "verbose=false "},
      {0, "-no_verbose=", "verbose=false "},
      {0, "-verbose=true", bad + "verbose, value: true"},
      {1, "-verbose=true", bad + "verbose, value: true"},
      {1, "+verbose=TRUE", bad + "verbose, value: TRUE"},
      {1, "+verbose", "verbose=true "},
      {1, "-verbose", "verbose=false "},
      {1, "-verbose=", "verbose=false "},
      {1, "-no_verbose", unknown + "no_verbose, value: "},
      {2, "-no_verbose", unknown + "no_verbose, value: "},
      {0, "-NO_verbose", unknown + "NO_verbose, value: "},
      {0, "-Verbose", unknown + "Verbose, value: "},
      {2, "-verbose=TRUE", "verbose=true "},
      {2, "-verbose=False", "verbose=false "},
      {2, "-verbose=YES", bad + "verbose, value: yes"},
      {2, "-verbose=\xc4\x41", bad + "verbose, value: \xc4\x61"},
      {2, "-verbose", bad + "verbose, value: "},
      {dash, "-count=3", "count=3 "},
      {dash, "-count=-3", "count=-3 "},
      {1, "+count=3", "count=3 "},
      {1, "-count=3", bad + "count, value: 3"},
      {0, "-no_count=3", bad + "count, value: 3"},
      {any, "-count", bad + "count, value: "},
      {dash, "-count=x", bad + "count, value: x"},
      {dash, "-out=a=b", "out=a=b "},
      {dash, "-out", "out= "},
      {dash, "-out=No_Case", "out=No_Case "},
      {dash, "-dump", "dump "},
      {1, "+dump", "dump "},
      {dash, "-dump=1", bad + "dump, value: 1"},
      {dash, "-mode=fast", "mode=7 "},
      {dash, "-mode=FAST", bad + "mode, value: FAST"},
      {any, "-zzz=1", unknown + "zzz, value: 1"},
      {any, "--verbose", unknown + "-verbose, value: "},
      {any, "-", unknown + ", value: "},
      {any, "--", unknown + "-, value: "},
      {any, "-=x", unknown + ", value: x"},
      {0, "-no_", unknown + ", value: "},
      {0, "-no_=x", unknown + ", value: x"},
      {0, "-no", unknown + "no, value: "},
      {1, "+", unknown + ", value: "},
      {1, "+x", unknown + "x, value: "},
      {dash, "+x", "[+x]"},
      {any, "input.txt", "[input.txt]"},
      {any, "", "[]"},
      {any, "\xff-", "[\xff-]"},
  };
  for (const auto& c : cases) {
    const bool is_unknown = c.outcome.rfind(unknown, 0) == 0;
    const bool is_refused = is_unknown || c.outcome.rfind(bad, 0) == 0;
    const std::string argument = c.argument;
    for (const OptionBoolStyle style : styles_of(c.style)) {
      EXPECT_EQ(outcome_of(style, false, {c.argument}),
                is_refused ? c.outcome + ", command-line: " + argument + " " : c.outcome)
          << style << " " << argument;
      if (is_unknown) {
        EXPECT_EQ(outcome_of(style, true, {c.argument}), "[" + argument + "]") << argument;
      }
    }
  }
}

TEST(CommandLine, ArgumentsAreAppliedInOrderUntilOneIsRefused) {
  const struct {
    Arguments arguments;
    std::string outcome;
  } cases[] = {
      {{}, ""},
      {{"a", "-count=1", "b", "-count=2", "-zz", "", "-out=x"}, "count=2 out=x [a][b][-zz][]"},
      {{"a", "-count=1", "-count=x", "b", "-dump"},
       "bad option format: count, value: x, command-line: -count=x count=1 [a]"},
      {{"-count", "3"}, "bad option format: count, value: , command-line: -count "},
      {{"--", "-dump"}, "dump [--]"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(outcome_of(BOOL_STYLE_NO_PREFIX, true, c.arguments), c.outcome);
}

TEST(CommandLine, TooFewArgumentsDoNothing) {
  OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
  std::vector<std::string> rest = {"kept"};
  parser.parse_args(0, nullptr, rest, 0);
  parse(parser, {}, rest);
  EXPECT_EQ(rest, std::vector<std::string>{"kept"});
  parse(parser, {"more"}, rest);
  EXPECT_EQ(rest, (std::vector<std::string>{"kept", "more"}));
}

TEST(CommandLine, ErrorsCarryNameValueAndArgument) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  add_sample_options(parser);
  std::vector<std::string> rest;
  try {
    parse(parser, {"-verbose=Yes"}, rest);
    FAIL();
  } catch (const OptionParser::error& error) {
    EXPECT_EQ(error.name, "verbose");
    EXPECT_EQ(error.value, "yes");
    EXPECT_EQ(error.command_line, "-verbose=Yes");
  }
}

TEST(CommandLine, LevelsRankTheCalls) {
  OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
  add_sample_options(parser);
  std::vector<std::string> rest;
  parse(parser, {"-count=1"}, rest, 1);
  parse(parser, {"-count=2"}, rest, 2);
  EXPECT_EQ(state_of(parser), "count=1 ");
  EXPECT_NE(refusal_of([&] { parse(parser, {"-count=x"}, rest, 2); }), "");
  parse(parser, {"-count=3"}, rest, 0);
  EXPECT_EQ(state_of(parser), "count=3 ");
}

// The keys a, b and c hash to the buckets 4, 5 and 6 of 31, and ) to 10.
TEST(CommandLine, OptionsAreFoundByNameAndTheFirstInTheTableWins) {
  OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
  for (const char* key : {")", "c", "b"}) parser.add_option(key, "same", OPT_INT, "");
  parser.add_option("a", "other", OPT_INT, "");
  std::vector<std::string> rest;
  parse(parser, {"-same=1"}, rest);
  EXPECT_TRUE(parser.get_flag_option("b"));
  EXPECT_FALSE(parser.get_flag_option("c") || parser.get_flag_option(")"));
  EXPECT_EQ(refusal_of([&] { parse(parser, {"-a=1"}, rest); }),
            "unknown option: a, value: 1, command-line: -a=1");

  parser.get_option("a")->name = "same";  // the host's change counts from the next call on
  parse(parser, {"-same=2", "-same=3"}, rest);
  EXPECT_TRUE(parser.get_flag_option("a"));
  EXPECT_EQ(parser.get_option("b")->value.int_value, 1);
}

}  // namespace
}  // namespace norq
