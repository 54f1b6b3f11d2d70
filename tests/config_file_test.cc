#include <cstdio>
#include <locale>

#include "testing.h"

namespace norq {

// A file of this test's own, gone when the test ends.
class ConfigFile : public testing::Test {
 protected:
  ConfigFile() { add_sample_options(parser); }
  ~ConfigFile() override { std::remove(path.c_str()); }

  std::string refusal_of_file(const std::string& name) {
    return refusal_of([&] { parser.parse_config_file(name, 0); });
  }

  OptionParser parser{BOOL_STYLE_NO_PREFIX, false};
  const std::string path = std::string("config_file_test.") +
                           testing::UnitTest::GetInstance()->current_test_info()->name();
};

TEST_F(ConfigFile, UnusualFiles) {
  EXPECT_EQ(refusal_of_file("no/such/file"), "unable to open config file: no/such/file");
  EXPECT_EQ(refusal_of_file(""), "unable to open config file: ");
  EXPECT_EQ(refusal_of_file("."), "");  // a directory has no lines
  const std::string text(10'000'000, 'x');
  std::ofstream(path) << "out = " << text << "\\\n"
                      << text << "\ncount = " << std::string(text.size(), '9');
  EXPECT_EQ(refusal_of_file(path), "");
  EXPECT_EQ(state_of(parser), "count=2147483647 out=" + text + " " + text + " ");
}

struct GroupDigits : std::numpunct<char> {
  std::string do_grouping() const override { return "\1"; }
};
struct RefuseBytes : std::codecvt<char, char, std::mbstate_t> {
  bool do_always_noconv() const noexcept override { return false; }
  result do_in(std::mbstate_t&, const char*, const char*, const char*&, char*, char*,
               char*&) const override {
    return error;
  }
};

TEST_F(ConfigFile, TheGlobalLocaleDoesNotMatter) {
  const std::locale grouping(std::locale(), new GroupDigits);
  std::ofstream(path) << std::string(1233, '\n') << "count\n";
  const std::locale before = std::locale::global(std::locale(grouping, new RefuseBytes));
  const std::string refusal = refusal_of_file(path);
  std::locale::global(before);
  EXPECT_EQ(refusal, "invalid line 1234 in config file: " + path);
}

}  // namespace norq
