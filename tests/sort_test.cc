#include "norq/utils/sort.h"

#include <gtest/gtest.h>

#include <vector>

namespace norq {

// Of numbers and where they stood, of which only the numbers are compared. The digests are those of
// a direct reading of the algorithm in another language.
TEST(Sort, PermutationsAreExact) {
  using Item = std::pair<int, unsigned>;
  const auto before = [](const Item& a, const Item& b) { return a.first < b.first; };
  const std::pair<int, unsigned> cases[] = {
      {-1, 362754006u}, {0, 170497602u}, {1, 1435977324u}, {2, 2581451954u}};
  for (const auto& [depth, digest] : cases) {  // of do_sort; -1: of the whole sort
    std::uint32_t x = 1, h = 0;
    for (unsigned n = 0; n < 200; ++n) {
      std::vector<Item> items;
      while (items.size() < n) {
        x = x * 1664525u + 1013904223u;
        items.emplace_back((x >> 16) % (1 + n % 7), items.size());
      }
      if (depth < 0) norq::sort(items.data(), items.data() + n, before);
      if (depth >= 0) sortimpl::do_sort(items.data(), std::size_t{n}, before, depth);
      for (const Item& item : items) h = h * 31 + item.second;
    }
    EXPECT_EQ(h, digest) << depth;
  }
}

// Decides the values of the elements while they are compared, always so that the pivot turns out
// small (M. D. McIlroy, "A Killer Adversary for Quicksort", 1999).
TEST(Sort, AnAdversaryIsStoppedByTheDepthBudget) {
  constexpr int open = 1 << 14;  // what is not decided yet
  std::vector<int> values(open, open);
  std::vector<int*> elements;
  for (int& value : values) elements.push_back(&value);
  const int* candidate = values.data();
  int decided = 0, comparisons = 0;
  norq::sort(elements.data(), elements.data() + open, [&](int* a, int* b) {
    ++comparisons;
    if (*a == open && *b == open) *(a == candidate ? a : b) = decided++;
    if (*a == open) candidate = a;
    if (*b == open) candidate = b;
    return *a < *b;
  });
  // 32 partitions of nearly all elements each, then a heap sort: counted by that other reading.
  EXPECT_EQ(comparisons, 780888);
}

}  // namespace norq
