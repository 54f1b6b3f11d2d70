#include "norq/tools/try_parse.h"

#include <gtest/gtest.h>

#include "support.h"

TEST(TryParse, GivesUpTheMessageIfOutOfMemory) {
  norq::OptionParser options(norq::BOOL_STYLE_NO_PREFIX, false);
  const char* const argv[] = {"program", "-unknown_option"};
  std::vector<std::string> rest;
  for (const int allocations : {0, 1000}) {
    std::string message = "before";
    norq::let_allocations_fail(norq::Failing::ALL_FROM, allocations);
    const bool parsed = norq::try_parse_args(options, 2, argv, rest, 0, &message);
    norq::stop_failing_allocations();
    EXPECT_FALSE(parsed);
    EXPECT_NE(message, "before");
  }
}
