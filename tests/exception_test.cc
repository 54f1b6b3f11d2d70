#include "norq/utils/exception.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <locale>

#include "norq/options/option_parser.h"

using Strings = std::vector<std::string>;

static Strings dumped;

// This program's own hook. The tests pass only where it is the one that the library calls.
void norq::Exception::dump_msg_and_raise_assertion() {
  dumped.emplace_back(what());
}

namespace norq {

// What a host's global locale may bring.
struct Thousands : std::numpunct<char> {
  std::string do_grouping() const override { return "\3"; }
};

TEST(Exception, TheTextGrowsByInsertionAndTheHookSeesItsStart) {
  std::locale::global(std::locale(std::locale::classic(), new Thousands));
  dumped.clear();
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
  EXPECT_EQ(dumped, Strings{"a"});  // once, and not for the copy
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
