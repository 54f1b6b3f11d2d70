#include "norq/tools/environment.h"

#include <cstdlib>

#include "../support.h"

namespace norq {

// Whether an option is set if the environment has "VARIABLE=B=text".
bool is_set_by(const char* variable, const std::string& prefix, const std::string& key) {
  OptionParser options(BOOL_STYLE_VALUE, false);
  options.add_option(key, OPT_STR, "");
  setenv(variable, "B=text", 1);
  parse_environment(options, prefix, 0);
  unsetenv(variable);
  return options.get_flag_option(key);
}

TEST(Environment, FindsTheVariableOfAKey) {
  EXPECT_TRUE(is_set_by("nq_WIDTH", "nq_", "width"));
  EXPECT_TRUE(is_set_by("NQ_AZ09______", "NQ_", "aZ09-@[`{ "));
  EXPECT_TRUE(is_set_by("NQ____B", "NQ_", std::string("\xc3\xa4\0b", 4)));
  EXPECT_FALSE(is_set_by("NQ_A", "NQ_A=", "b"));
}

TEST(Environment, StopsAtTheFirstErrorInRegistrationOrder) {
  OptionParser options(BOOL_STYLE_VALUE, false);
  for (const char* const key : {"z", "a.b", "c"}) options.add_option(key, OPT_INT, "");
  setenv("NQ_Z", "1", 1);
  for (const char* const variable : {"NQ_A_B", "NQ_C"}) setenv(variable, "x", 1);
  EXPECT_EQ(outcome_of(options, [&] { parse_environment(options, "NQ_", 7); }),
            "invalid environment variable NQ_A_B (bad value for option: a.b, value: x); z = 1");
  EXPECT_EQ(options.get_option("z")->level, 7);
}

}  // namespace norq
