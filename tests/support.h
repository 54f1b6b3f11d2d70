// What several test files share.

#ifndef NORQ_TESTS_SUPPORT_H
#define NORQ_TESTS_SUPPORT_H

#include <gtest/gtest.h>

#include <functional>

#include "norq/options/option_parser.h"

namespace norq {

using Strings = std::vector<std::string>;

// The texts that this program's diagnostic hook has been called with, such as "a;b;".
extern std::string announced;

// A parser with an option of each type: verbose, size, count, ratio, out, dump, mode.
struct SampleParser : OptionParser {
  explicit SampleParser(OptionBoolStyle style = BOOL_STYLE_VALUE);
};

// Applies these arguments, behind a program's name.
void parse_args(OptionParser& parser, const Strings& arguments, Strings* remaining, int level = 0);

// What `print_help` writes and flushes.
std::string help_of(OptionParser& parser, OptionPrintOrder order, OptionPrintStyle style,
                    const std::string& heading = "");

// The text of the Exception that `call` throws, if any, and the options that are set then, such as
// "bad value for option: count, value: x; dump =; out = a.txt".
std::string outcome_of(
    const OptionParser& parser, const std::function<void()>& call = [] {});

// All that a host can observe: values, the table's iteration order, help groups, records.
std::string view_of(OptionParser& parser, const Strings& keys);

// Expects that twice the input takes at most three times the time.
void expect_linear_time(std::size_t size, const std::function<void(std::size_t)>& run);

// Lets `count` allocations succeed, by operator new as well as malloc. Then one fails or all do.
enum class Failing { NONE, ONE, ALL_FROM };
void let_allocations_fail(Failing failing, int count);

// Lets all allocations succeed again. Returns whether any failed since the call above.
bool stop_failing_allocations();

// Runs `act` on a new state from `make`, with the first, the second, ... allocation failing, until
// none fails; and once more with all allocations from that one on failing. Whenever `act` met a
// failure, it must have thrown std::bad_alloc, and `check` is called with the state.
template <class Make, class Act, class Check>
void run_out_of_memory(Make make, Act act, Check check) {
  for (const Failing failing : {Failing::ONE, Failing::ALL_FROM}) {
    bool failed = true;
    for (int count = 0; failed; ++count) {
      SCOPED_TRACE(testing::Message() << count << " allocations succeed");
      auto state = make();
      bool threw = false;
      let_allocations_fail(failing, count);
      try {
        act(state);
      } catch (const std::bad_alloc&) {
        threw = true;
      }
      failed = stop_failing_allocations();
      EXPECT_EQ(threw, failed);
      if (failed) check(state);
    }
  }
}

}  // namespace norq

#endif  // NORQ_TESTS_SUPPORT_H
