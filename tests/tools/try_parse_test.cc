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
  bool failed = true;
  for (int count = 0; failed; ++count) {
    message.assign("before").shrink_to_fit();
    let_allocations_fail(Failing::ONE, count);
    EXPECT_FALSE(try_parse_config_file(options, "missing", 0, &message));
    failed = stop_failing_allocations();
    EXPECT_NE(message, "before") << count << " allocations succeed";
  }
}

}  // namespace norq
