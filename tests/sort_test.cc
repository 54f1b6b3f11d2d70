#include "norq/utils/sort.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>

#include "testing.h"

namespace norq {

// A number and where it stood: only the number is compared.
using Item = std::pair<int, int>;
bool before(const Item& a, const Item& b) {
  return a.first < b.first;
}

std::vector<Item> items_of(const std::vector<int>& keys) {
  std::vector<Item> items;
  for (const int key : keys) items.emplace_back(key, static_cast<int>(items.size()));
  return items;
}

// The digests are those of a direct reading of the algorithm in another language.
TEST(Sort, PermutationsAreExact) {
  const std::pair<int, unsigned> cases[] = {
      {-1, 362754006u}, {0, 170497602u}, {1, 1435977324u}, {2, 2581451954u}};
  for (const auto& [depth, digest] : cases) {  // of do_sort; -1: of the whole sort
    std::uint32_t x = 1, h = 0;
    for (unsigned n = 0; n < 200; ++n) {
      std::vector<int> keys(n);
      for (int& key : keys) {
        x = x * 1664525u + 1013904223u;
        key = static_cast<int>((x >> 16) % (1 + n % 7));
      }
      std::vector<Item> items = items_of(keys);
      if (depth < 0) norq::sort(items.data(), items.data() + n, before);
      if (depth >= 0) sortimpl::do_sort(items.data(), std::size_t{n}, before, depth);
      for (const Item& item : items) h = h * 31 + static_cast<std::uint32_t>(item.second);
    }
    EXPECT_EQ(h, digest) << depth;
  }
}

TEST(Sort, RandomRangesAgreeWithAStableSortButForTies) {
  std::mt19937 random(4711);  // the same numbers in every run
  for (int round = 0; round < 600; ++round) {
    std::vector<int> keys(random() % 300);
    const unsigned range = 1u << random() % 12;
    for (int& key : keys) key = static_cast<int>(random() % range);
    if (round % 4 == 1) std::sort(keys.begin(), keys.end());
    if (round % 4 == 2) std::sort(keys.begin(), keys.end(), std::greater<>());
    std::vector<Item> items = items_of(keys), expected = items;
    norq::sort(items.data(), items.data() + items.size(), before);
    ASSERT_TRUE(std::is_sorted(items.begin(), items.end(), before)) << "round " << round;
    std::sort(items.begin(), items.end());
    std::stable_sort(expected.begin(), expected.end(), before);
    ASSERT_EQ(items, expected) << "round " << round;
  }
}

// Decides the values of the elements while they are compared, always so that the pivot turns out
// small (M. D. McIlroy, "A Killer Adversary for Quicksort", 1999).
TEST(Sort, AnAdversaryIsStoppedByTheDepthBudget) {
  constexpr int n = 1 << 14;
  std::vector<int> value(n, n), elements(n);  // a value of n is still open
  std::iota(elements.begin(), elements.end(), 0);
  int decided = 0, candidate = 0;
  long comparisons = 0;
  const auto value_of = [&](int i) -> int& { return value[static_cast<std::size_t>(i)]; };
  norq::sort(elements.data(), elements.data() + n, [&](int a, int b) {
    ++comparisons;
    if (value_of(a) == n && value_of(b) == n) value_of(a == candidate ? a : b) = decided++;
    if (value_of(a) == n) candidate = a;
    if (value_of(b) == n) candidate = b;
    return value_of(a) < value_of(b);
  });
  // 32 partitions of nearly all elements each, then a heap sort.
  EXPECT_GT(comparisons, n * (32 + 13L));
  EXPECT_LT(comparisons, n * (33 + 2 * 14 + 2L));
}

}  // namespace norq
