#ifndef NORQ_FUZZ_FUZZ_H
#define NORQ_FUZZ_FUZZ_H

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "norq/options/option_parser.h"

// Runs one input. Aborts if the library and its model differ.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

namespace norq {

using Strings = std::vector<std::string>;

inline void expect_equal(const std::string& actual, const std::string& expected) {
  if (actual == expected) return;
  std::cerr << "\nactual:\n" << actual << "\nexpected:\n" << expected << '\n';
  std::abort();
}

// Reads the bytes of an input as choices. After the last byte every choice is 0.
struct Input {
  std::size_t below(std::size_t limit) { return next == end ? 0 : *next++ % limit; }
  std::string one_of(const Strings& texts) { return texts[below(texts.size())]; }
  std::string some_of(const Strings& texts, std::size_t most) {
    std::string joined;
    for (std::size_t left = below(most + 1); left > 0; --left) joined += one_of(texts);
    return joined;
  }

  const unsigned char* next;
  const unsigned char* end;
};

// A parser with random options, and its keys in the table's order. Group 1 is called "Group 1".
struct RandomParser {
  explicit RandomParser(Input& input) : choice(input.below(6)) {
    const Strings words = {"\n", " ", "\t", "and ", "words ", "in a line ", std::string(35, 'w')};
    const std::string long_name(input.below(2) == 0 ? 9 : 68 + input.below(12), 'n');
    for (std::size_t left = input.below(250), groups = 0; left > 0; --left) {
      const std::string key = input.one_of({"k", "no_", "nox"}) + std::to_string(input.below(99));
      const std::string name = input.one_of({key, key, key, "a", "no_a", "\xe9", long_name});
      const std::string help = input.below(8) == 0 ? "deprecated" : input.some_of(words, 15);
      const auto type = static_cast<OptionType>(input.below(7));
      if (input.below(8) == 0) parser.set_cur_help_group("Group " + std::to_string(++groups));
      if (parser.add_option(key, name, type, help)) keys.insert(key);
      parser.add_enum_value(key, "fast", 7, help);
      if (input.below(8) == 0 && parser.del_option(key)) keys.erase(key);
    }
  }

  std::size_t choice;
  OptionBoolStyle style = static_cast<OptionBoolStyle>(choice % 3);
  bool pass_unknown = choice < 3;
  OptionParser parser{style, pass_unknown};
  hsh::HashSet<std::string> keys;
};

}  // namespace norq

#endif  // NORQ_FUZZ_FUZZ_H
