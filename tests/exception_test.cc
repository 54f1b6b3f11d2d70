#include "norq/utils/exception.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

#include "norq/options/option_parser.h"

using Strings = std::vector<std::string>;

static Strings dumped;

// This program's own hook. The tests pass only where it is the one that the library calls.
void norq::Exception::dump_msg_and_raise_assertion() {
  dumped.emplace_back(what());
}

namespace norq {

TEST(Exception, TheTextGrowsByInsertion) {
  Exception exception("a", false);
  exception << "b" << 3;
  EXPECT_STREQ(exception.what(), "ab3");
  EXPECT_STREQ(exception.what(), "ab3");
  Exception copy(exception);
  const char* const text = exception.what();
  copy << std::string("c") << 12345 << '-' << -1;
  EXPECT_STREQ(copy.what(), "ab3c12345--1");
  exception << std::hex << 255;
  EXPECT_STREQ(text, "ab3");  // valid until the next call
  EXPECT_STREQ(exception.what(), "ab3ff");
}

TEST(Exception, TheHookSeesTheFirstTextOnceForEachException) {
  dumped.clear();
  const Exception quiet("quiet", false);
  try {
    throw Exception("first", true) << " and second";
  } catch (const Exception& caught) {
    const Exception copy(caught);
    EXPECT_STREQ(copy.what(), "first and second");
  }
  EXPECT_EQ(dumped, Strings{"first"});
}

TEST(Exception, TheHookSeesTheLibrarysExceptions) {
  OptionParser parser(BOOL_STYLE_NO_PREFIX, false);
  parser.add_option("n", OPT_INT, "");
  const char* const argv[] = {"host", "-n=x"};
  Strings rest;
  const std::string path = std::string("exception_test.") + NORQ_LINKED_AS;
  std::ofstream(path) << "n = x\n";
  dumped.clear();
  EXPECT_THROW(parser.parse_option("x", "", 0), OptionParser::error);
  EXPECT_THROW(parser.parse_args(2, argv, rest, 0), OptionParser::error);
  EXPECT_THROW(parser.parse_config_file("no/such/file", 0), Exception);
  EXPECT_THROW(parser.parse_config_file(path, 0), Exception);
  EXPECT_EQ(dumped, (Strings{"unknown option", "bad option format", "unable to open config file: ",
                             "bad value for option", "invalid line "}));
  std::remove(path.c_str());
}

}  // namespace norq
