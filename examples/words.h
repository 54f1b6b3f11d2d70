// The part of wordfreq that counts and prints words. It does not use options.
#ifndef NORQ_EXAMPLES_WORDS_H
#define NORQ_EXAMPLES_WORDS_H

#include <algorithm>
#include <cctype>
#include <iomanip>
#include <istream>
#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "norq/utils/string_utils.h"

using Counts = std::map<std::string, int>;

// Which words are printed, and in which order. A negative `skip` keeps only that many words, from
// the end of the list.
struct Listing {
  int skip = 0;
  int top = 10;
  float min_percent = 0;
  int by_word = 0;
};

inline void count_words(std::istream& in, bool fold_case, Counts* counts) {
  const auto is_punctuation = [](char byte) {
    return std::ispunct(static_cast<unsigned char>(byte)) != 0;
  };
  const auto lower = [](char byte) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(byte)));
  };
  for (std::string text; in >> text;) {
    std::string word = norq::str::strip(text, is_punctuation);
    if (fold_case) std::transform(word.begin(), word.end(), word.begin(), lower);
    if (!word.empty()) ++(*counts)[word];
  }
}

inline void print_words(const Counts& counts, const Listing& listing, std::ostream& out) {
  std::vector<std::pair<std::string, int>> words(counts.begin(), counts.end());
  std::stable_sort(words.begin(), words.end(),
                   [](const auto& a, const auto& b) { return a.second > b.second; });
  double total = 0;
  for (const auto& [word, count] : words) total += count;

  const int size = static_cast<int>(words.size());
  const int first = std::clamp(listing.skip < 0 ? size + listing.skip : listing.skip, 0, size);
  auto entry = words.begin() + first;
  const auto end = entry + std::min(listing.top, size - first);
  if (listing.by_word != 0) std::sort(entry, end);
  constexpr int width = 6;  // of a column of numbers
  out << std::fixed << std::setprecision(1);
  for (; entry != end; ++entry) {
    const double percent = 100 * entry->second / total;
    if (percent < static_cast<double>(listing.min_percent)) continue;
    out << std::setw(width) << entry->second << std::setw(width) << percent << "% " << entry->first
        << '\n';
  }
}

#endif  // NORQ_EXAMPLES_WORDS_H
