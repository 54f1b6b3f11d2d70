#include "norq/utils/exception.h"

#include <gtest/gtest.h>

#include <locale>

#include "../support.h"

namespace norq {

TEST(Exception, TextGrowsInTheClassicLocaleAndTheHookSeesItsStartOnce) {
  struct Grouping : std::numpunct<char> {
    std::string do_grouping() const override { return "\3"; }
  };
  const std::locale before = std::locale::global(std::locale(std::locale(), new Grouping));
  announced.clear();
  Exception exception("a", true);
  exception << "b" << 1234;
  const Exception copy(exception);
  const char* const text = exception.what();
  exception << std::string("c") << std::hex << 65535;
  EXPECT_STREQ(text, "ab1234");  // valid until what() is called again
  EXPECT_STREQ(exception.what(), "ab1234cffff");
  EXPECT_STREQ(copy.what(), "ab1234");
  EXPECT_EQ(announced, "a;");
  std::locale::global(before);
}

TEST(Exception, FailedInsertionsKeepTheText) {
  const std::string text(1000, 'a');
  const auto fail = [](std::ostream&) -> std::ostream& { throw 42; };
  const auto append = [&](Exception& exception) { exception << text << text; };
  run_out_of_memory([&] { return Exception(text, false); }, append,
                    [&](Exception& exception) {
                      EXPECT_THROW(exception << fail, int);
                      EXPECT_NO_THROW(exception << static_cast<const char*>(nullptr));
                      EXPECT_EQ(std::string(exception.what()).find(text), 0u);
                      let_allocations_fail(Failing::ALL_FROM, 0);
                      EXPECT_STREQ(exception.what(), "");
                      stop_failing_allocations();
                    });
}

}  // namespace norq
