#include "norq/utils/exception.h"

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
  const char* const text = exception.what();
  exception << std::hex << 65535 << '\0';
  Exception copy(exception);
  copy << 'c';
  EXPECT_STREQ(copy.what(), "ab1234ffff");  // the rest follows the NUL byte
  EXPECT_STREQ(text, "ab1234");             // valid until what() is called again
  EXPECT_STREQ(exception.what(), "ab1234ffff");
  EXPECT_EQ(announced, "a;");
  std::locale::global(before);
}

TEST(Exception, FailedInsertionsKeepTheText) {
  const std::string text(1000, 'a');
  const auto fail = [](std::ostream&) -> std::ostream& { throw 42; };
  const auto append = [&](Exception& exception) { exception << text << text; };
  const auto make = [&] { return Exception(text, false); };
  run_out_of_memory(make, append, [&](Exception& exception) {
    EXPECT_THROW(exception << fail, int);
    EXPECT_NO_THROW(exception << static_cast<const char*>(nullptr) << "ignored");
    const std::string kept = exception.what();
    EXPECT_TRUE(kept.find(text) == 0 && kept.find("ignored") == kept.npos);
    failing_allocations = INT_MAX;
    EXPECT_STREQ(exception.what(), "");
    failing_allocations = 0;
  });
}

}  // namespace norq
