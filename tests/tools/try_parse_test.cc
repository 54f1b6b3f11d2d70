#include "norq/tools/try_parse.h"

#include <gtest/gtest.h>

#include "../support.h"

TEST(TryParse, ReportsWhatWasThrown) {
  norq::OptionParser options(norq::BOOL_STYLE_NO_PREFIX, false);
  const char* const argv[] = {"program", "file", "-unknown"};
  std::vector<std::string> rest;
  std::string message = "before";
  EXPECT_TRUE(norq::try_parse_args(options, 2, argv, rest, 0, &message) && message == "before");
  norq::let_allocations_fail(norq::Failing::ALL_FROM, 0);
  EXPECT_FALSE(norq::try_parse_config_file(options, "missing", 0, nullptr));
  norq::stop_failing_allocations();
  EXPECT_FALSE(norq::try_parse_args(options, 3, argv, rest, 0, &message));
  EXPECT_EQ(message, "unknown option: unknown, value: , command-line: -unknown");
}
