#include "norq/tools/defaults.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>

#include "../support.h"

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
  EXPECT_TRUE(set_default(*options, "count", "007") && set_default(*options, "old", "1"));
  EXPECT_TRUE(set_default(*options, "mode", "a") && !set_default(*options, "mode", "b"));
  EXPECT_EQ(options->get_option_help("count"), "How often. (default: 007)");
  EXPECT_EQ(options->get_option_help("mode") + options->get_option_help("old"),
            "(default: a)deprecated");
  EXPECT_FALSE(is_given(*options, "count") || is_given(*options, "missing"));
  options->parse_option("count", "8", INT_MAX - 1);
  EXPECT_TRUE(is_given(*options, "count") && options->get_option("count")->value.int_value == 8);
}

TEST(Defaults, ChangeNothingIfRefusedOrOutOfMemory) {
  EXPECT_FALSE(set_default(*make_options(), "missing", "1"));
  run_out_of_memory(
      make_options, [](auto& options) { set_default(*options, "mode", std::string(100, 'v')); },
      [](const auto& options) {
        EXPECT_THROW(set_default(*options, "count", "x"), OptionParser::error);
        EXPECT_FALSE(options->get_flag_option("mode") || options->get_flag_option("count"));
        EXPECT_EQ(options->get_option_help("mode") + options->get_option_help("count"),
                  "How often.");
      });
}

}  // namespace norq
