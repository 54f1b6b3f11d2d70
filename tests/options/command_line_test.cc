#include "../support.h"

namespace norq {

// What an argument leads to. An error's text is cut before the argument, which ends it.
std::string apply(OptionBoolStyle style, const std::string& argument) {
  SampleParser parser(style);
  Strings remaining;
  std::string outcome = outcome_of(parser, [&] { parse_args(parser, {argument}, &remaining); });
  if (remaining == Strings{argument}) outcome += "remains";
  return outcome.substr(0, outcome.find(", command-line: " + argument));
}

TEST(CommandLine, AnArgumentSetsAnOptionOrRemainsOrIsRefused) {
  EXPECT_EQ(apply(BOOL_STYLE_NO_PREFIX, "-verbose"), "verbose = true");
  EXPECT_EQ(apply(BOOL_STYLE_NO_PREFIX, "-no_verbose"), "verbose = false");
  EXPECT_EQ(apply(BOOL_STYLE_NO_PREFIX, "-verbose=1"), "bad option format: verbose, value: 1");
  EXPECT_EQ(apply(BOOL_STYLE_NO_PREFIX, "-no_count=3"), "bad option format: count, value: 3");
  EXPECT_EQ(apply(BOOL_STYLE_NO_PREFIX, "-no_"), "unknown option: , value: ");
  EXPECT_EQ(apply(BOOL_STYLE_NO_PREFIX, "+count=3"), "remains");
  EXPECT_EQ(apply(BOOL_STYLE_PLUS_MINUS, "+verbose"), "verbose = true");
  EXPECT_EQ(apply(BOOL_STYLE_PLUS_MINUS, "-verbose"), "verbose = false");
  EXPECT_EQ(apply(BOOL_STYLE_PLUS_MINUS, "-no_verbose"), "unknown option: no_verbose, value: ");
  EXPECT_EQ(apply(BOOL_STYLE_PLUS_MINUS, "+count=3"), "count = 3");
  EXPECT_EQ(apply(BOOL_STYLE_PLUS_MINUS, "-count=3"), "bad option format: count, value: 3");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, "-verbose=TRUE"), "verbose = true");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, "-verbose=@AZ[\xc4"),
            "bad option format: verbose, value: @az[\xc4");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, "-verbose"), "bad option format: verbose, value: ");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, "-no_verbose"), "unknown option: no_verbose, value: ");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, "-count=-3"), "count = -3");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, "-out=A=b"), "out = A=b");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, "-Count=3"), "unknown option: Count, value: 3");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, "--verbose"), "unknown option: -verbose, value: ");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, "-"), "unknown option: , value: ");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, "+count=3"), "remains");
  EXPECT_EQ(apply(BOOL_STYLE_VALUE, ""), "remains");
}

TEST(CommandLine, AppliesArgumentsInOrderAtItsLevelUntilOneIsRefused) {
  SampleParser parser;
  Strings remaining = {"kept"};
  parse_args(parser, {"a", "-count=1", "-count=2", "", "-dump"}, &remaining, 5);
  const Strings refused = {"b", "-count=3", "-out", "-size", "4", "-verbose=true"};
  EXPECT_EQ(outcome_of(parser, [&] { parse_args(parser, refused, &remaining, 6); }),
            "bad option format: size, value: , command-line: -size; count = 2; dump =; out = ");
  EXPECT_EQ(remaining, (Strings{"kept", "a", "", "b"}));
  parser.parse_args(0, nullptr, remaining, 0);
}

// The keys a, b and c hash to the buckets 4, 5 and 6 of 31.
TEST(CommandLine, FindsTheFirstOptionInTheTableThatHasTheNameNow) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  for (const char* const key : {"c", "b", "a"}) parser.add_option(key, OPT_INT, "");
  Option* const b = parser.get_option("b");
  Strings remaining;
  parse_args(parser, {"-b=1"}, &remaining);
  b->name = "c";
  parse_args(parser, {"-c=2", "-c=3"}, &remaining);
  EXPECT_EQ(outcome_of(parser), "b = 3");
  EXPECT_THROW(parse_args(parser, {"-b=4"}, &remaining), OptionParser::error);
}

TEST(CommandLine, TakesLinearTimeForArgumentsOfAsManyOptions) {
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

TEST(CommandLine, OutOfMemoryKeepsWhatWasAppliedAndAppendedBefore) {
  const Strings arguments = {std::string(40, 'a'), "-out=" + std::string(40, 'b'), "c"};
  const auto make = [] { return std::pair(std::make_unique<SampleParser>(), Strings()); };
  const auto act = [&](auto& state) { parse_args(*state.first, arguments, &state.second); };
  run_out_of_memory(make, act, [](const auto& state) {
    EXPECT_TRUE(outcome_of(*state.first).empty() || state.second.size() == 1);
  });
}

}  // namespace norq
