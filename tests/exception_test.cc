#include "norq/utils/exception.h"

#include <gtest/gtest.h>

#include <locale>
#include <string>

static std::string dumped;

// This program's own hook. The tests pass only where it is the one that the library calls.
void norq::Exception::dump_msg_and_raise_assertion() {
  dumped.append(what()) += ';';
}

namespace norq {

// What a host's global locale may bring.
struct Thousands : std::numpunct<char> {
  std::string do_grouping() const override { return "\3"; }
};

TEST(Exception, TheTextGrowsByInsertionAndTheHookSeesItsStart) {
  std::locale::global(std::locale(std::locale::classic(), new Thousands));
  Exception exception("a", true);
  exception << "b" << 3;
  EXPECT_STREQ(exception.what(), "ab3");
  Exception copy(exception);
  const char* const text = exception.what();
  exception << std::hex << 4660;
  EXPECT_STREQ(text, "ab3");  // valid until the next call
  EXPECT_STREQ(exception.what(), "ab31234");
  copy << std::string("c") << 12345 << '-' << -1;
  EXPECT_STREQ(copy.what(), "ab3c12345--1");
  EXPECT_STREQ(Exception("quiet", false).what(), "quiet");
  EXPECT_EQ(dumped, "a;");  // once, and not for the copy
}

struct Thrower {};
std::ostream& operator<<(std::ostream& out, Thrower /*value*/) {
  out << "so far";
  throw 42;
}

TEST(Exception, InsertionPropagatesWhatAValueThrowsAndIgnoresStateFlags) {
  Exception exception("a", false);
  EXPECT_THROW(exception << Thrower(), int);
  EXPECT_STREQ((exception << "!").what(), "aso far!");
  EXPECT_NO_THROW(exception << static_cast<const char*>(nullptr));
  EXPECT_STREQ(exception.what(), "aso far!");
}

}  // namespace norq
