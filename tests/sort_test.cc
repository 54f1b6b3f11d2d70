#include "norq/utils/sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

namespace norq {
namespace {

// A number and where it stood: only the number is compared.
struct Item {
  int key;
  int place;
};
bool before(const Item& a, const Item& b) {
  return a.key < b.key;
}

std::vector<Item> items_of(const std::vector<int>& keys) {
  std::vector<Item> items;
  for (const int key : keys) items.push_back({key, static_cast<int>(items.size())});
  return items;
}

std::vector<int> places_of(const std::vector<Item>& items) {
  std::vector<int> places;
  for (const Item& item : items) places.push_back(item.place);
  return places;
}

void sort_items(std::vector<Item>* items) {
  sort(items->data(), items->data() + items->size(), before);
}

TEST(Sort, EqualElementsComeOutInOneOrderOnly) {
  std::vector<int> up(40);
  std::iota(up.begin(), up.end(), 0);
  const auto range = [&](int first, int last) {  // first ... last, up or down
    std::vector<int> places(up.begin() + std::min(first, last),
                            up.begin() + std::max(first, last) + 1);
    if (first > last) std::reverse(places.begin(), places.end());
    return places;
  };
  std::vector<int> halves = range(16, 31);
  halves.insert(halves.end(), up.begin(), up.begin() + 16);
  const struct {
    std::vector<int> keys;
    std::vector<int> places;
  } cases[] = {
      {{}, {}},
      {{1}, {0}},
      {{2, 2, 1}, {2, 1, 0}},  // the first of two equals was swapped behind the other
      {{1, 2, 0, 0}, {2, 3, 0, 1}},
      {std::vector<int>(15, 7), range(0, 14)},
      {std::vector<int>(16, 7), range(15, 0)},  // one partition swaps every pair
      {std::vector<int>(17, 7), range(16, 0)},
      {std::vector<int>(32, 7), halves},  // and then those of both halves
  };
  for (const auto& c : cases) {
    std::vector<Item> items = items_of(c.keys);
    sort_items(&items);
    EXPECT_EQ(places_of(items), c.places) << c.keys.size();
  }
}

TEST(Sort, TheHeapPrefersTheLeftOfEqualChildren) {
  const std::less<> less;
  std::vector<Item> items = items_of({7, 7, 7});
  auto compare = before;
  sortimpl::heap_sort(items.data(), items.size(), compare);
  EXPECT_EQ(places_of(items), (std::vector<int>{2, 0, 1}));

  std::vector<int> numbers(1000);
  for (std::size_t i = 0; i < numbers.size(); ++i) numbers[i] = static_cast<int>(i * 7919 % 1009);
  std::vector<int> expected = numbers;
  std::sort(expected.begin(), expected.end());
  sortimpl::do_sort(numbers.data(), numbers.size(), less, 0);
  EXPECT_EQ(numbers, expected);
}

TEST(Sort, RandomRangesAgreeWithAStableSortButForTies) {
  std::mt19937 random(4711);  // NOLINT: the same numbers in every run
  for (int round = 0; round < 600; ++round) {
    std::vector<int> keys(random() % 300);
    const unsigned range = 1u << random() % 12;
    for (int& key : keys) key = static_cast<int>(random() % range);
    if (round % 4 == 1) std::sort(keys.begin(), keys.end());
    if (round % 4 == 2) std::sort(keys.begin(), keys.end(), std::greater<>());

    std::vector<Item> items = items_of(keys);
    sort_items(&items);
    ASSERT_TRUE(std::is_sorted(items.begin(), items.end(), before)) << "round " << round;
    std::sort(items.begin(), items.end(), [](const Item& x, const Item& y) {
      return std::make_pair(x.key, x.place) < std::make_pair(y.key, y.place);
    });
    std::vector<Item> expected = items_of(keys);
    std::stable_sort(expected.begin(), expected.end(), before);
    ASSERT_EQ(places_of(items), places_of(expected)) << "round " << round;
  }
}

// Decides the values of the elements while they are compared, always so that the pivot turns out
// small (M. D. McIlroy, "A Killer Adversary for Quicksort", 1999).
TEST(Sort, AnAdversaryCannotMakeItQuadratic) {
  constexpr int n = 1 << 14;
  const int gas = n;
  std::vector<int> value(n, gas);
  std::vector<int> elements(n);
  std::iota(elements.begin(), elements.end(), 0);
  int solid = 0;
  int candidate = 0;
  long comparisons = 0;
  const auto freeze = [&](int element) { value[static_cast<std::size_t>(element)] = solid++; };
  const auto value_of = [&](int element) { return value[static_cast<std::size_t>(element)]; };
  sort(elements.data(), elements.data() + n, [&](int a, int b) {
    ++comparisons;
    if (value_of(a) == gas && value_of(b) == gas) freeze(a == candidate ? a : b);
    if (value_of(a) == gas) candidate = a;
    if (value_of(b) == gas) candidate = b;
    return value_of(a) < value_of(b);
  });
  EXPECT_LT(static_cast<double>(comparisons), 6.0 * n * std::log2(n));
  EXPECT_TRUE(std::is_sorted(elements.begin(), elements.end(),
                             [&](int a, int b) { return value_of(a) < value_of(b); }));
}

}  // namespace
}  // namespace norq
