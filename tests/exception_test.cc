#include "norq/utils/exception.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string>& dumped() {
  static std::vector<std::string> texts;
  return texts;
}

}  // namespace

// This program's own hook. The test passes only where it is the one that the library calls.
void norq::Exception::dump_msg_and_raise_assertion() {
  dumped().emplace_back(what());
}

namespace norq {
namespace {

using Texts = std::vector<std::string>;

TEST(Exception, TheTextGrowsByInsertion) {
  Exception exception("a", false);
  exception << "b" << 3;
  EXPECT_STREQ(exception.what(), "ab3");
  EXPECT_STREQ(exception.what(), "ab3");
  Exception copy(exception);
  copy << std::string("c") << 12345 << '-' << -1;
  EXPECT_STREQ(copy.what(), "ab3c12345--1");
  exception << std::hex << 255;
  EXPECT_STREQ(exception.what(), "ab3ff");
  try {
    throw copy << '!';
  } catch (const std::exception& caught) {
    EXPECT_STREQ(caught.what(), "ab3c12345--1!");
  }
}

TEST(Exception, TheHostsHookSeesTheFirstTextOnceForEachException) {
  dumped().clear();
  const Exception quiet("quiet", false);
  EXPECT_EQ(dumped(), Texts());
  try {
    throw Exception("first", true) << " and second";
  } catch (const Exception& caught) {
    const Exception copy(caught);
    EXPECT_STREQ(copy.what(), "first and second");
  }
  EXPECT_EQ(dumped(), Texts{"first"});
}

}  // namespace
}  // namespace norq
