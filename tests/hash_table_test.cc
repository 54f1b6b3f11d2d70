#include "norq/utils/hash_table.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace norq {
namespace hsh {
namespace {

using IntSet = HashSet<int>;

std::vector<int> elements_of(const IntSet& set) {
  return {set.begin(), set.end()};
}

TEST(HashTable, Hashes) {
  const std::uint64_t zero = 0;
  const struct {
    std::string key;
    std::uint64_t hash;
  } cases[] = {
      {"", 0},
      {"abc", 3014},
      {"\xe9", zero - 23},
      {"\xe9"
       "a",
       (zero - 23) * 5 + 'a'},
      {std::string("a\0b", 3), 'a'},
      {std::string("\0b", 2), 0},
  };
  for (const auto& c : cases) EXPECT_EQ(hash<std::string>()(c.key), c.hash) << c.key;
  EXPECT_EQ(hash<int>()(-1), zero - 1);

  std::size_t bucket = 99;
  IntSet::Bucket* node = nullptr;
  IntSet set;
  EXPECT_TRUE(set.do_insert(-1, &bucket, &node));
  EXPECT_EQ(bucket, 15u);
  EXPECT_EQ(node->value, -1);
}

TEST(HashTable, GrowsOnTheAttemptAfterTheLoadPassedTheLimit) {
  IntSet set;
  const struct {
    std::size_t size, buckets, grown;
  } steps[] = {{22, 31, 73}, {52, 73, 151}, {106, 151, 313}, {220, 313, 643}};
  for (const auto& step : steps) {
    while (set.size() < step.size) set.insert(static_cast<int>(set.size()));
    EXPECT_EQ(set.bucket_count(), step.buckets);
    EXPECT_FALSE(set.insert(0));  // an attempt is enough
    EXPECT_EQ(set.bucket_count(), step.grown);
  }
  EXPECT_TRUE(set.erase(0));
  set.clear(true);
  EXPECT_EQ(set.bucket_count(), 643u);
  set.rehash(643);
  EXPECT_EQ(set.bucket_count(), 643u);
  set.rehash(644);
  EXPECT_EQ(set.bucket_count(), 1291u);
  EXPECT_EQ(bucket_count_for(4294867386), 4294867387u);
  EXPECT_EQ(bucket_count_for(4294867388), 4294867387u);
}

TEST(HashTable, IterationGoesByBucketAndFromTheNewest) {
  IntSet set;
  for (const int key : {0, 31, 62, 1, 73, -1}) set.insert(key);
  EXPECT_EQ(elements_of(set), (std::vector<int>{62, 31, 0, 1, 73, -1}));
  EXPECT_TRUE(set.erase(31));
  EXPECT_FALSE(set.erase(31));
  EXPECT_EQ(elements_of(set), (std::vector<int>{62, 0, 1, 73, -1}));
  set.rehash(32);  // 73 buckets: 73 comes after 0 into its chain; -1 goes to 2^64 - 1 modulo 73 = 1
  EXPECT_EQ(elements_of(set), (std::vector<int>{73, 0, -1, 1, 62}));
  EXPECT_EQ(*set.find(62), 62);
  EXPECT_TRUE(++set.find(62) == set.end());
  EXPECT_TRUE(set.find(31) == set.end());
}

TEST(HashTable, MapsKeepTheFirstValueAndMakeMissingOnes) {
  HashMap<std::string, int> map;
  EXPECT_FALSE(map.erase("a"));
  EXPECT_TRUE(map.find("a") == map.end());
  EXPECT_EQ(map["a"], 0);
  map["a"] = 5;
  EXPECT_FALSE(map.insert({"a", 6}));
  HashMap<std::string, int>::Bucket* node = nullptr;
  EXPECT_FALSE(map.do_insert({"a", 7}, nullptr, &node));
  EXPECT_EQ(node->value.second, 5);
  EXPECT_TRUE(map.insert({std::string("a\0b", 3), 8}));  // the same bucket, another key
  EXPECT_EQ(map["a"], 5);
  EXPECT_EQ(map.size(), 2u);
}

TEST(HashTable, ErasedNodesComeBackLastInFirstOut) {
  IntSet set;
  std::vector<const int*> nodes;
  for (const int key : {5, 36, 1}) {
    set.insert(key);
    nodes.push_back(&*set.find(key));
  }
  for (const bool reallocate : {false, true}) {
    set.clear(reallocate);  // 1, then 36, then 5
    EXPECT_EQ(set.size(), 0u);
    EXPECT_TRUE(set.begin() == set.end());
    for (const int key : {5, 36, 1}) {
      set.insert(key);
      EXPECT_EQ(&*set.find(key), nodes[key == 5 ? 0 : key == 36 ? 1 : 2]) << key;
    }
  }
}

TEST(HashTable, PoolsCarveGrowingChunksInAscendingOrder) {
  MemoryPool<32, false> pool(2, 2.5f, 6);
  std::vector<std::size_t> chunks;
  std::vector<char*> blocks;
  for (int i = 0; i < 2 + 5 + 6 + 6; ++i) {
    auto* const block = static_cast<char*>(pool.allocate());
    if (blocks.empty() || block != blocks.back() + 32) chunks.push_back(0);
    ++chunks.back();
    blocks.push_back(block);
  }
  EXPECT_EQ(chunks, (std::vector<std::size_t>{2, 5, 6, 6}));
  for (const std::size_t i : {3u, 0u, 7u}) pool.recycle(blocks[i]);
  for (const std::size_t i : {7u, 0u, 3u}) EXPECT_EQ(pool.allocate(), blocks[i]);
}

struct Picky {
  Picky() = default;
  Picky(const Picky& other) : refuses(other.refuses) {
    if (refuses) throw std::runtime_error("refused");
  }
  Picky& operator=(const Picky&) = delete;
  bool refuses = false;
};

TEST(HashTable, AnInsertionThatThrowsLeavesNothingBehind) {
  HashMap<int, Picky> map;
  const auto* const first = &map[1];
  map.erase(1);
  std::pair<int, Picky> refused;
  refused.second.refuses = true;
  EXPECT_THROW(map.insert(refused), std::runtime_error);
  EXPECT_EQ(map.size(), 0u);
  EXPECT_EQ(&map[1], first);  // the block had gone back to the pool
}

TEST(HashTable, AgreesWithAnOrderedMap) {
  std::mt19937 random(99);  // NOLINT: the same numbers in every run
  HashMap<std::string, int> table;
  std::map<std::string, int> model;
  for (int step = 0; step < 20000; ++step) {
    const std::string key = "key-" + std::to_string(random() % 2000);
    const int value = static_cast<int>(random() % 1000);
    switch (random() % 8) {
      case 0:
      case 1:
      case 2:
        ASSERT_EQ(table.insert({key, value}), model.insert({key, value}).second) << step;
        break;
      case 3:
        table[key] = value;
        model[key] = value;
        break;
      case 4:
      case 5:
        ASSERT_EQ(table.erase(key), model.erase(key) == 1) << step;
        break;
      default:
        const auto found = table.find(key);
        ASSERT_EQ(found != table.end(), model.count(key) == 1) << step;
        if (found != table.end()) {
          ASSERT_EQ(found->second, model[key]) << step;
        }
    }
    if (random() % 8000 == 0) {
      table.clear(step % 2 == 0);
      model.clear();
    }
    ASSERT_EQ(table.size(), model.size()) << step;
  }
  EXPECT_EQ((std::map<std::string, int>(table.begin(), table.end())), model);
}

}  // namespace
}  // namespace hsh
}  // namespace norq
