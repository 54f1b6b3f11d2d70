#include "norq/utils/hash_table.h"

#include <map>
#include <memory>
#include <random>
#include <stdexcept>

#include "testing.h"

namespace norq::hsh {

using IntSet = HashSet<int>;

TEST(HashTable, Hashes) {
  const hash<std::string> hash_of;
  EXPECT_TRUE(hash_of("") == 0 && hash_of({"\0b", 2}) == 0 && hash_of({"a\0b", 3}) == 'a');
  EXPECT_EQ(hash_of("abc"), 3014u);
  EXPECT_EQ(hash_of("\xe9"), std::uint64_t{0} - 23);
  EXPECT_EQ(hash_of("\xe9_"), (std::uint64_t{0} - 23) * 5 + '_');
  std::size_t bucket = 99;
  IntSet::Bucket* node = nullptr;
  IntSet set;
  EXPECT_TRUE(set.do_insert(-1, &bucket, &node));  // hashes to 2^64 - 1
  EXPECT_TRUE(bucket == 15 && node->value == -1);
}

TEST(HashTable, GrowsOnTheAttemptAfterTheLoadPassedTheLimit) {
  IntSet set;
  const std::size_t steps[][3] = {{22, 31, 73}, {52, 73, 151}, {106, 151, 313}, {220, 313, 643}};
  for (const auto& [size, buckets, grown] : steps) {
    while (set.size() < size) set.insert(static_cast<int>(set.size()));
    EXPECT_EQ(set.bucket_count(), buckets);
    EXPECT_FALSE(set.insert(0));  // an attempt is enough
    EXPECT_EQ(set.bucket_count(), grown);
  }
  EXPECT_TRUE(set.erase(0));
  set.clear(true);
  set.rehash(643);
  EXPECT_EQ(set.bucket_count(), 643u);
  set.rehash(644);
  EXPECT_EQ(set.bucket_count(), 1291u);
  std::uint64_t sum = 0;
  for (std::size_t count = 0, i = 0; i < 28; ++i) sum += count = bucket_count_for(count + 1);
  EXPECT_EQ(sum, 9823674302u);  // of the 28 primes
  EXPECT_EQ(bucket_count_for(4294867388), 4294867387u);
}

TEST(HashTable, IterationGoesByBucketAndFromTheNewest) {
  IntSet set;
  const auto elements = [&] { return std::vector<int>(set.begin(), set.end()); };
  for (const int key : {0, 31, 62, 1, 73, -1}) set.insert(key);
  EXPECT_EQ(elements(), (std::vector<int>{62, 31, 0, 1, 73, -1}));
  set.rehash(31);
  EXPECT_TRUE(set.erase(31) && !set.erase(31));
  EXPECT_EQ(elements(), (std::vector<int>{62, 0, 1, 73, -1}));
  set.rehash(32);  // 73 buckets: 73 comes after 0 into its chain; -1 goes to 2^64 - 1 modulo 73 = 1
  EXPECT_EQ(elements(), (std::vector<int>{73, 0, -1, 1, 62}));
  EXPECT_TRUE(++set.find(62) == set.end() && set.find(31) == set.end());
}

TEST(HashTable, MapsKeepTheFirstValueAndMakeMissingOnes) {
  HashMap<std::string, int> map;
  HashMap<std::string, int>::Bucket* node = nullptr;
  EXPECT_FALSE(map.erase("a") || map.find("a") != map.end() || map["a"] != 0);
  map["a"] = 5;
  EXPECT_FALSE(map.insert({"a", 6}) || map.try_emplace("a", 7) ||
               map.do_insert({"a", 7}, nullptr, &node));
  EXPECT_EQ(node->value.second, 5);
  EXPECT_TRUE(map.insert({std::string("a\0b", 3), 8}));  // the same bucket, another key
  EXPECT_TRUE(map["a"] == 5 && map.size() == 2);
}

TEST(HashTable, PoolsCarveGrowingChunksAndReuseTheLastFreed) {
  for (const float factor : {2.5f, 1e30f}) {
    MemoryPool<32, false> pool(2, factor, 6);
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
  IntSet set;  // clearing goes through 5, 36 -> 5, 1 by bucket: 1, 36, 5
  std::map<int, const int*> nodes;
  for (const int key : {5, 36, 1}) {
    set.insert(key);
    nodes[key] = &*set.find(key);
  }
  for (const bool reallocate : {false, true}) {
    set.clear(reallocate);
    EXPECT_TRUE(set.size() == 0 && set.begin() == set.end());
    for (const int key : {5, 36, 1}) {
      set.insert(key);
      EXPECT_EQ(&*set.find(key), nodes[key]) << key;
    }
  }
}

TEST(HashTable, DiscardingDestroysEveryElementOnce) {
  const auto token = std::make_shared<int>();
  HashMap<int, std::shared_ptr<int>> map;
  for (const int erased : {0, 3, 0}) {  // with erased ones, free blocks lie between the elements
    for (int key = 0; key < 60; ++key) map.insert({key, token});
    for (int key = 0; key < erased; ++key) EXPECT_TRUE(map.erase(key * 20));
    EXPECT_EQ(token.use_count(), 61 - erased);
    map.discard();
    EXPECT_TRUE(token.use_count() == 1 && map.size() == 0 && map.find(1) == map.end());
  }
}

struct Picky {
  Picky() = default;
  Picky(const Picky&) { throw std::runtime_error("not copied"); }
};

TEST(HashTable, AnInsertionThatThrowsLeavesNothingBehind) {
  HashMap<int, Picky> map;
  const auto* const first = &map[1];
  map.erase(1);
  EXPECT_THROW(map.insert(std::pair<int, Picky>()), std::runtime_error);
  EXPECT_EQ(map.size(), 0u);
  EXPECT_EQ(&map[1], first);  // the block had gone back to the pool
}

TEST(HashTable, AgreesWithAnOrderedMap) {
  std::mt19937 random(99);  // the same numbers in every run
  HashMap<std::string, int> table;
  std::map<std::string, int> model;
  for (int step = 0; step < 20000; ++step) {
    const std::string key = "key-" + std::to_string(random() % 2000);
    const auto action = random() % 8;
    bool same = true;
    if (action < 3) same = table.insert({key, step}) == model.insert({key, step}).second;
    if (action == 3) table[key] = model[key] = step;
    if (action == 4 || action == 5) same = table.erase(key) == (model.erase(key) == 1);
    ASSERT_TRUE(same) << step;
    const auto found = table.find(key);
    ASSERT_EQ(found == table.end() ? -1 : found->second, model.count(key) == 0 ? -1 : model[key]);
    if (random() % 8000 == 0) {
      table.clear(step % 2 == 0);
      model.clear();
    }
    ASSERT_EQ(table.size(), model.size()) << step;
  }
  EXPECT_EQ((std::map<std::string, int>(table.begin(), table.end())), model);
}

}  // namespace norq::hsh
