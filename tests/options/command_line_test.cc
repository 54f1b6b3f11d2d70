#include "../support.h"

namespace norq {

// The outcome of parsing these arguments. Errors are shown without the argument at their end.
std::string apply(OptionBoolStyle style, const Strings& arguments) {
  SampleParser parser(style);
  parser.add_option("no_log", OPT_BOOL, "");
  Strings remaining;
  std::string outcome = outcome_of(parser, [&] { parse_args(parser, arguments, &remaining); });
  for (const std::string& argument : remaining) outcome += "; '" + argument + "' remains";
  const std::size_t end = outcome.find(", command-line: " + arguments.back());
  return end == std::string::npos ? outcome : outcome.erase(end, 16 + arguments.back().size());
}

TEST(CommandLine, AnArgumentSetsAnOptionOrRemainsOrIsAnError) {
  EXPECT_EQ(apply(BOOL_STYLE_NO_PREFIX, {"-verbose", "-no_no_log", "+count=3"}),
            "no_log = false; verbose = true; '+count=3' remains");
  EXPECT_EQ(apply(BOOL_STYLE_NO_PREFIX, {"-no_log"}), "unknown option: log, value: ");
  EXPECT_EQ(apply(BOOL_STYLE_NO_PREFIX, {"-verbose=1"}), "bad option format: verbose, value: 1");
  EXPECT_EQ(apply(BOOL_STYLE_NO_PREFIX, {"-no_count=3"}), "bad option format: count, value: 3");
  EXPECT_EQ(apply(BOOL_STYLE_NO_PREFIX, {"-no"}), "unknown option: no, value: ");
  EXPECT_EQ(apply(BOOL_STYLE_NO_PREFIX, {"-no_"}), "unknown option: , value: ");
  EXPECT_EQ(apply(BOOL_STYLE_PLUS_MINUS, {"+verbose", "-no_log", "+count=3"}),
            "count = 3; no_log = false; verbose = true");
  EXPECT_EQ(apply(BOOL_STYLE_PLUS_MINUS, {"-count=3"}), "bad option format: count, value: 3");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, {"-verbose=TRUE", "-count=-3", "-out=A=b", "", "+size=1"}),
            "count = -3; out = A=b; verbose = true; '' remains; '+size=1' remains");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, {"-verbose=@AZ[\xc4"}),
            "bad option format: verbose, value: @az[\xc4");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, {"-verbose"}), "bad option format: verbose, value: ");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, {"-no_verbose"}), "unknown option: no_verbose, value: ");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, {"-Count=3"}), "unknown option: Count, value: 3");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, {"--"}), "unknown option: -, value: ");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, {"-"}), "unknown option: , value: ");
}

TEST(CommandLine, AppliesArgumentsInOrderAtItsLevelUpToAnError) {
  SampleParser parser;
  Strings remaining = {"kept"};
  parse_args(parser, {"a", "-count=1", "-count=2", "", "-dump"}, &remaining, 5);
  const Strings arguments = {"b", "-count=3", "-out", "-size", "4", "-verbose=true"};
  EXPECT_EQ(outcome_of(parser, [&] { parse_args(parser, arguments, &remaining, 6); }),
            "bad option format: size, value: , command-line: -size; count = 2; dump =; out = ");
  EXPECT_EQ(remaining, (Strings{"kept", "a", "", "b"}));
  parser.parse_args(0, nullptr, remaining, 0);
}

// The keys a, b, c, ... hash to the buckets 4, 5, 6, ... of 31.
TEST(CommandLine, FindsTheFirstOptionInTheTableWithTheCurrentName) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  for (char key = 't'; key >= 'a'; --key) parser.add_option(std::string(1, key), OPT_INT, "");
  Strings remaining;
  parse_args(parser, {"-b=1"}, &remaining);
  parser.get_option("b")->name = "c";
  parse_args(parser, {"-c=2", "-c=3"}, &remaining);
  EXPECT_EQ(outcome_of(parser, [&] { parse_args(parser, {"-b=4"}, &remaining); }),
            "unknown option: b, value: 4, command-line: -b=4; b = 3");
}

TEST(CommandLine, TakesLinearTimeForManyArgumentsAndOptions) {
  expect_linear_time(1000, [](std::size_t count) {
    OptionParser parser(BOOL_STYLE_VALUE, false);
    Strings arguments;
    Strings remaining;
    for (std::size_t i = 0; i < count; ++i) {
      arguments.push_back("-" + std::to_string(i));
      parser.add_option("key of " + arguments.back(), std::to_string(i), OPT_FLAG, "");
    }
    parse_args(parser, arguments, &remaining);
  });
}

}  // namespace norq
