#include "norq/tools/try_parse.h"

#include "../support.h"

namespace norq {

TEST(TryParse, ReportsWhatWasThrown) {
  SampleParser options;
  const char* const argv[] = {"program", "file", "-unknown"};
  Strings rest;
  std::string message = "before";
  EXPECT_TRUE(try_parse_args(options, 2, argv, rest, 0, &message) && message == "before");
  EXPECT_FALSE(try_parse_args(options, 3, argv, rest, 0, &message));
  EXPECT_EQ(message, "unknown option: unknown, value: , command-line: -unknown");
  EXPECT_FALSE(try_parse_config_file(options, "missing", 0, nullptr));
  failing_allocations = INT_MAX;
  EXPECT_FALSE(try_parse_config_file(options, "missing", 0, &message));
  failing_allocations = 0;
  EXPECT_EQ(message, std::bad_alloc().what());
}

}  // namespace norq
