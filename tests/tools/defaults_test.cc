#include "norq/tools/defaults.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>

#include "support.h"

namespace norq {

std::unique_ptr<OptionParser> make_options() {
  auto options = std::make_unique<OptionParser>(BOOL_STYLE_NO_PREFIX, false);
  options->add_option("count", OPT_INT, "How often.");
  options->add_option("mode", OPT_STR, "");
  options->add_option("old", OPT_INT, "deprecated");
  return options;
}

TEST(Defaults, AreShownAndReplacedByEverySource) {
  const auto options = make_options();
  EXPECT_TRUE(set_default(*options, "count", "007"));
  EXPECT_TRUE(set_default(*options, "mode", ""));
  EXPECT_TRUE(set_default(*options, "old", "1"));
  EXPECT_EQ(options->get_option_help("count"), "How often. (default: 007)");
  EXPECT_EQ(options->get_option_help("mode"), "(default: )");
  EXPECT_EQ(options->get_option_help("old"), "deprecated");
  EXPECT_FALSE(is_given(*options, "count"));
  EXPECT_EQ(options->get_option("count")->value.int_value, 7);
  options->parse_option("count", "8", INT_MAX - 1);
  EXPECT_EQ(options->get_option("count")->value.int_value, 8);
  EXPECT_TRUE(is_given(*options, "count"));
}

TEST(Defaults, ChangeNothingIfRefused) {
  const auto options = make_options();
  EXPECT_THROW(set_default(*options, "count", "x"), OptionParser::error);
  EXPECT_FALSE(set_default(*options, "missing", "1"));
  options->parse_option("mode", "a", INT_MAX);
  EXPECT_FALSE(set_default(*options, "mode", "b"));
  EXPECT_EQ(options->get_option_help("count") + options->get_option_help("mode"), "How often.");
  EXPECT_STREQ(options->get_option("mode")->value.str_value, "a");
  EXPECT_FALSE(is_given(*options, "missing") || is_given(*options, "count"));
}

TEST(Defaults, ChangeNothingIfOutOfMemory) {
  const std::string value(100, 'v');
  run_out_of_memory(
      make_options, [&](auto& options) { set_default(*options, "mode", value); },
      [](const auto& options) {
        EXPECT_FALSE(options->get_flag_option("mode"));
        EXPECT_EQ(options->get_option_help("mode"), "");
      });
}

}  // namespace norq
