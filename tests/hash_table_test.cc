// Order and growth of the tables are compared with a slow table in fuzz/tables.cc.

#include "norq/utils/hash_table.h"

#include <gtest/gtest.h>

#include <functional>

#include "session.h"

namespace norq::hsh {

TEST(HashTable, HashesAndBucketCounts) {
  const hash<std::string> hash_of;
  EXPECT_TRUE(hash_of("") == 0 && hash_of({"\0b", 2}) == 0 && hash_of({"a\0b", 3}) == 'a');
  EXPECT_EQ(hash_of("abc"), 3014u);
  EXPECT_EQ(hash_of("\xe9"), std::uint64_t{0} - 23);
  EXPECT_EQ(hash_of("\xe9_"), (std::uint64_t{0} - 23) * 5 + '_');
  EXPECT_EQ(hash<int>()(-1), std::uint64_t{0} - 1);
  std::uint64_t sum = 0;
  for (std::size_t count = 0, i = 0; i < 28; ++i) sum += count = bucket_count_for(count + 1);
  EXPECT_EQ(sum, 9823674302u);  // of the 28 primes
  EXPECT_EQ(bucket_count_for(73), 73u);
  EXPECT_EQ(bucket_count_for(4294867388), 4294867387u);
}

TEST(HashTable, PoolsCarveGrowingChunksAndReuseTheLastFreed) {
  for (const float factor : {2.5f, 1e30f}) {
    MemoryPool<32, false> pool(2, factor, 6);
    Starvation::left = 0;
    EXPECT_THROW((Starvation(), pool.allocate()), std::bad_alloc);
    std::vector<std::size_t> chunks;
    std::vector<char*> blocks;
    for (int i = 0; i < 15; ++i) {
      auto* const block = static_cast<char*>(pool.allocate());
      if (blocks.empty() || block != blocks.back() + 32) chunks.push_back(0);
      ++chunks.back();
      blocks.push_back(block);
    }
    const std::size_t second = factor < 3 ? 5 : 6;
    EXPECT_EQ(chunks, (std::vector<std::size_t>{2, second, 6, 7 - second}));
    for (const std::size_t i : {3u, 0u, 7u}) pool.recycle(blocks[i]);
    for (const std::size_t i : {7u, 0u, 3u}) EXPECT_EQ(pool.allocate(), blocks[i]);
  }
  MemoryPool<32, false> unlimited(1, 1e18f, 0);
  unlimited.allocate();
  EXPECT_THROW(unlimited.allocate(), std::bad_alloc);
}

TEST(HashTable, NodesLieInChunksOf16ThenTwiceAsManyUpTo8192) {
  HashSet<int> set;
  std::vector<int> starts;
  const char* next = nullptr;
  for (int key = 0; key < 25000; ++key) {
    set.insert(key);
    const char* const node = reinterpret_cast<const char*>(&*set.find(key));
    if (node != next) starts.push_back(key);
    next = node + sizeof(HashSet<int>::Bucket);
  }
  EXPECT_EQ(starts,
            (std::vector<int>{0, 16, 48, 112, 240, 496, 1008, 2032, 4080, 8176, 16368, 24560}));
}

TEST(HashTable, AFailedAllocationLeavesElementsAndOrder) {
  using Map = HashMap<std::string, std::string>;
  using Contents = std::vector<std::pair<std::string, std::string>>;
  const std::string text(100, 'x');
  const std::vector<std::function<void(Map&)>> calls = {
      [&](Map& m) { m[text]; },
      [&](Map& m) { m.try_emplace(text, text); },
      [&](Map& m) { m.insert(std::pair(text, text)); },
      [&](Map& m) { m.new_Bucket(std::pair(text, text)); },
      [&](Map& m) { m.rehash(1000); },
      [&](Map& m) { m.clear(true); },
      [](Map&) { const Map made; },
      [](Map&) { const Parser made(0); }};
  for (std::size_t i = 0; i < 2 * calls.size(); ++i) {
    Map m;  // 48 elements fill the pool's chunks, 52 the buckets
    while (m.size() < (i % 2 == 0 ? 48 : 52)) m[text + std::to_string(m.size())];
    bool failed = true;
    for (long n = 0; failed; ++n) {
      const Contents before(m.begin(), m.end());
      Starvation::left = n;
      try {
        const Starvation starvation;
        calls[i / 2](m);
      } catch (const std::bad_alloc&) {
      }
      failed = Starvation::left < 0;
      Starvation::left = -1;
      EXPECT_TRUE(!failed || Contents(m.begin(), m.end()) == before) << i << ", allocation " << n;
    }
    m.discard();
  }
}

}  // namespace norq::hsh
