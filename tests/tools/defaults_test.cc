#include "norq/tools/defaults.h"

#include "../support.h"

namespace norq {

TEST(Defaults, AreShownAndReplacedByEverySource) {
  SampleParser options;
  options.set_option_help("count", "How often.");
  options.set_option_help("size", "deprecated");
  EXPECT_TRUE(set_default(options, "count", "007") && set_default(options, "size", "1"));
  EXPECT_TRUE(set_default(options, "out", "a") && !set_default(options, "out", "b"));
  EXPECT_EQ(options.get_option_help("count"), "How often. (default: 007)");
  EXPECT_EQ(options.get_option_help("out") + options.get_option_help("size"),
            "(default: a)deprecated");
  EXPECT_FALSE(is_given(options, "count") || is_given(options, "mode") || is_given(options, "x"));
  options.parse_option("count", "8", INT_MAX - 1);
  EXPECT_TRUE(is_given(options, "count"));
  EXPECT_EQ(outcome_of(options, [] {}), "count = 8; out = a; size = 1");
}

TEST(Defaults, ChangeNothingOnErrorsAndOutOfMemory) {
  const auto make = [] { return std::make_unique<SampleParser>(); };
  const std::string before = view_of(*make());
  run_out_of_memory(
      make, [](auto& options) { set_default(*options, "out", std::string(100, 'v')); },
      [&before](auto& options) {
        EXPECT_FALSE(set_default(*options, "missing", "1"));
        EXPECT_THROW(set_default(*options, "count", "x"), OptionParser::error);
        EXPECT_EQ(view_of(*options), before);
      });
}

}  // namespace norq
