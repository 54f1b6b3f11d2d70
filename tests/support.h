// Helpers shared by several test files.

#ifndef NORQ_TESTS_SUPPORT_H
#define NORQ_TESTS_SUPPORT_H

#include <gtest/gtest.h>

#include <climits>
#include <ctime>
#include <set>
#include <utility>

#include "norq/options/option_parser.h"

namespace norq {

using Strings = std::vector<std::string>;

// The messages passed to this program's diagnostic hook, such as "a;b;".
inline std::string announced;

// How many allocations, by operator new or malloc, succeed, and how many then fail.
inline int succeeding_allocations = 0;
inline int failing_allocations = 0;

// A parser with an option of each type.
struct SampleParser : OptionParser {
  explicit SampleParser(OptionBoolStyle style = BOOL_STYLE_VALUE) : OptionParser(style, false) {
    const char* const keys[] = {"verbose", "size", "count", "ratio", "out", "dump", "mode"};
    for (int type = OPT_BOOL; type <= OPT_ENUM; ++type)
      add_option(keys[type], OptionType(type), "");
    add_enum_value("mode", "fast", 7, "");
  }
};

// Parses these arguments, after a program name.
inline void parse_args(OptionParser& parser, const Strings& arguments, Strings* remaining,
                       int level = 0) {
  std::vector<const char*> argv = {"-program"};
  for (const std::string& argument : arguments) argv.push_back(argument.c_str());
  parser.parse_args(static_cast<int>(argv.size()), argv.data(), *remaining, level);
}

// What `print_help` writes. Expects that it flushes once.
inline std::string help_of(OptionParser& parser, OptionPrintOrder order, OptionPrintStyle style,
                           const std::string& heading = "") {
  struct : std::stringbuf {
    int sync() override { return ++flushes - 1; }
    int flushes = 0;
  } buffer;
  buffer.str(std::string(1 << 14, '?'));  // so that only `print_help` allocates
  std::ostream out(&buffer);
  parser.print_help(out, heading, order, style);
  EXPECT_EQ(buffer.flushes, 1);
  return buffer.str().substr(0, static_cast<std::size_t>(out.tellp()));
}

// The text of the Exception that `call` throws, if any, and the options that are set then, such as
// "bad value for option: count, value: x; dump =; out = a.txt".
template <class Call>
std::string outcome_of(const OptionParser& parser, Call call) {
  std::ostringstream out;
  out.precision(9);  // shows every float exactly
  try {
    call();
  } catch (const Exception& exception) {
    out << exception.what();
  }
  hsh::HashSet<std::string> keys;
  parser.get_options_set(keys);
  for (const std::string& key : std::set<std::string>(keys.begin(), keys.end())) {
    out << (out.tellp() == 0 ? "" : "; ") << key << " =";
    const auto append_if_served = [&](auto getter, auto value) {
      if ((parser.*getter)(key, &value)) out << ' ' << std::boolalpha << value;
    };
    append_if_served(&OptionParser::get_bool_option, false);
    append_if_served(&OptionParser::get_int_option, 0);
    append_if_served(&OptionParser::get_float_option, 0.0F);
    append_if_served(&OptionParser::get_str_option, std::string());
  }
  return out.str();
}

// All that a program can observe: values, help groups, records in the table's iteration order.
inline std::string view_of(OptionParser& parser) {
  std::string view = outcome_of(parser, [] {});
  view += help_of(parser, PRINT_ORDER_GROUP_NAME, PRINT_STYLE_TAB);
  for (const auto& [key, o] : parser.get_options()) {
    view += key + testing::PrintToString(
                      std::tuple(o.name, o.type, o.help, o.group, o.is_set, o.index, o.level));
    if (o.enum_values != nullptr) view += testing::PrintToString(*o.enum_values);
  }
  return view;
}

// Expects that twice the input takes at most three times the CPU time.
template <class Run>
void expect_linear_time(std::size_t size, Run run) {
  std::clock_t best[] = {LONG_MAX, LONG_MAX};
  for (std::size_t number = 0; number < 12; ++number) {
    const std::size_t twice = number % 2;
    const std::clock_t start = std::clock();
    run(size + twice * size);
    best[twice] = std::min(best[twice], std::clock() - start);
  }
  EXPECT_LE(best[1], 3 * best[0]);
}

// Runs `act` on a new state from `make`, with the first, the second, ... allocation failing, until
// none fails; then again with that allocation and all later ones failing. If an allocation failed,
// `act` must have thrown, and `check` is called with the state.
template <class Make, class Act, class Check>
void run_out_of_memory(Make make, Act act, Check check) {
  for (const int failures : {1, INT_MAX}) {
    bool failed = true;
    for (int successes = 0; failed; ++successes) {
      SCOPED_TRACE(testing::Message() << successes << " allocations succeed");
      auto state = make();
      bool threw = false;
      succeeding_allocations = successes;
      failing_allocations = failures;
      try {
        act(state);
      } catch (const std::bad_alloc&) {
        threw = true;
      } catch (const Exception&) {
        threw = true;
      }
      failed = std::exchange(failing_allocations, 0) < failures;
      EXPECT_EQ(threw, failed);
      if (failed) check(state);
    }
  }
}

}  // namespace norq

#endif  // NORQ_TESTS_SUPPORT_H
