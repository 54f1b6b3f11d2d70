#include "norq/tools/environment.h"

#include <cstdlib>

#include "../support.h"

namespace norq {
namespace {

// What an option is set to when this variable is "B=text".
std::string value_from(const char* variable, const std::string& prefix, const std::string& key) {
  OptionParser options(BOOL_STYLE_NO_PREFIX, false);
  options.add_option(key, OPT_STR, "");
  setenv(variable, "B=text", 1);
  parse_environment(options, prefix, 0);
  unsetenv(variable);
  std::string value = "not set";
  options.get_str_option(key, &value);
  return value;
}

TEST(Environment, VariableOfAKey) {
  EXPECT_EQ(value_from("nq_WIDTH", "nq_", "width"), "B=text");
  EXPECT_EQ(value_from("NQ_AZ09______", "NQ_", "aZ09-@[`{ "), "B=text");
  EXPECT_EQ(value_from("NQ____B", "NQ_", std::string("\xc3\xa4\0b", 4)), "B=text");
  EXPECT_EQ(value_from("NQ_A", "NQ_A=", "b"), "not set");  // "NQ_A=B=text" in the environment
  EXPECT_EQ(value_from("NQ_", std::string("NQ_\0", 4), "b"), "not set");
}

TEST(Environment, StopsAtTheFirstRefusedValueInRegistrationOrder) {
  OptionParser options(BOOL_STYLE_NO_PREFIX, false);
  for (const char* const key : {"z", "a.b", "c"}) options.add_option(key, OPT_INT, "");
  setenv("NQ_Z", "1", 1);
  for (const char* const variable : {"NQ_A_B", "NQ_C"}) setenv(variable, "x", 1);
  try {
    parse_environment(options, "NQ_", 7);
    ADD_FAILURE() << "accepts x as an integer";
  } catch (const Exception& refusal) {
    EXPECT_STREQ(refusal.what(),
                 "invalid environment variable NQ_A_B (bad value for option: a.b, value: x)");
  }
  EXPECT_EQ(options.get_option("z")->level, 7);
}

}  // namespace
}  // namespace norq
