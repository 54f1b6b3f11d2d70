#include "norq/tools/environment.h"

#include <cstdlib>

#include "support.h"

namespace norq {
namespace {

TEST(Environment, VariableOfAKey) {
  struct Row {
    std::string prefix;
    std::string key;
    const char* variable;
    bool is_found;
  };
  const Row rows[] = {
      {"nq_", "width", "nq_WIDTH", true},  // the prefix is taken as given
      {"NQ_", "aZ09-@[`{ ", "NQ_AZ09______", true},
      {"NQ_", std::string("\xc3\xa4\0b", 4), "NQ____B", true},
      {"NQ_A=", "b", "NQ_A", false},  // although the environment holds "NQ_A=B=text"
      {std::string("NQ_\0", 4), "b", "NQ_", false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.variable);
    OptionParser options(BOOL_STYLE_NO_PREFIX, false);
    options.add_option(row.key, OPT_STR, "");
    setenv(row.variable, "B=text", 1);
    parse_environment(options, row.prefix, 0);
    unsetenv(row.variable);
    std::string value;
    EXPECT_EQ(options.get_str_option(row.key, &value), row.is_found);
    EXPECT_EQ(value, row.is_found ? "B=text" : "");
  }
}

TEST(Environment, StopsAtTheFirstRefusedValueInRegistrationOrder) {
  OptionParser options(BOOL_STYLE_NO_PREFIX, false);
  for (const char* const key : {"z", "a.b", "c"}) options.add_option(key, OPT_UINT, "");
  for (const char* const variable : {"NQ_A_B", "NQ_C"}) setenv(variable, "x", 1);
  setenv("NQ_Z", "1", 1);
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
