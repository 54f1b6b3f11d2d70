#include "norq/utils/sort.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace norq {

// Sorts numbers with their positions. The digests come from an independent program in Python.
TEST(Sort, PermutationsAreExact) {
  using Item = std::pair<int, unsigned>;
  const auto before = [](const Item& a, const Item& b) { return a.first < b.first; };
  const std::pair<int, unsigned> digests[] = {{-1, 1674850062}, {0, 4252898402}, {1, 2827039466}};
  for (const auto& [depth, expected] : digests) {  // of do_sort; -1: of sort
    std::minstd_rand random(1);
    unsigned digest = 0;
    for (unsigned size = 0; size < 200; ++size) {
      std::vector<Item> items;
      while (items.size() < size) items.emplace_back(random() % (1 + size % 9), items.size());
      if (depth < 0) norq::sort(items.data(), items.data() + size, before);
      if (depth >= 0) sortimpl::do_sort(items.data(), std::size_t{size}, before, depth);
      for (const Item& item : items) digest = digest * 31 + item.second;
    }
    EXPECT_EQ(digest, expected) << "depth " << depth;
  }
  EXPECT_EQ(sortimpl::depth_budget, 32);
}

}  // namespace norq
