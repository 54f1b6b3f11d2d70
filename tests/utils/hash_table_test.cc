#include "norq/utils/hash_table.h"

#include <algorithm>
#include <list>
#include <random>

#include "../support.h"

namespace norq::hsh {

TEST(HashTable, HashesAndBucketCounts) {
  EXPECT_EQ(hash<std::string>()({"abc\0d", 5}), 3014u);  // up to the NUL byte
  EXPECT_EQ(hash<std::string>()("\xe9\xe9_abcdef"), std::uint64_t{0} - 8917018);
  EXPECT_EQ(hash<int>()(-1), std::uint64_t{0} - 1);
  std::uint64_t sum = 0;
  for (std::size_t count = 0, i = 0; i < 28; ++i) sum += count = bucket_count_for(count + 1);
  EXPECT_EQ(sum, 9823674302u);  // of the 28 primes
  EXPECT_EQ(bucket_count_for(73), 73u);
  EXPECT_EQ(bucket_count_for(4294867388), 4294867387u);
  HashSet<int> set;
  for (const std::size_t wanted : {32u, 150u, 31u}) set.rehash(wanted);
  EXPECT_EQ(set.bucket_count(), 151u);
}

TEST(HashTable, NodesComeFromGrowingChunksAndTheLastFreedIsReusedFirst) {
  HashSet<int> set;
  std::vector<HashSet<int>::Bucket*> nodes;
  std::vector<int> starts;  // of chunks
  std::size_t bucket = 0;
  for (int key = 0; key < 24561; ++key) {
    EXPECT_TRUE(set.do_insert(key, &bucket, &nodes.emplace_back()));
    if (key == 0 || nodes.back() != nodes.end()[-2] + 1) starts.push_back(key);
  }
  EXPECT_EQ(starts, (std::vector{0, 16, 48, 112, 240, 496, 1008, 2032, 4080, 8176, 16368, 24560}));
  EXPECT_EQ(bucket, 24560u);
  EXPECT_FALSE(set.do_insert(3, &bucket, &nodes.emplace_back()));
  EXPECT_TRUE(bucket == 3 && nodes.back() == nodes[3]);
  nodes.pop_back();
  for (const int key : {3, 0, 7}) set.erase(key);
  for (const std::size_t i : {7u, 0u, 3u}) EXPECT_EQ(set.new_Bucket(5), nodes[i]);
  EXPECT_EQ(nodes[3]->key_hash, 5u);
  set.clear(false);
  set.do_insert(5, nullptr, nullptr);
  EXPECT_EQ(&*set.find(5)++, &nodes.back()->value);
  EXPECT_TRUE(set.begin() != set.end() && set.end() == HashSet<int>::iterator());
}

TEST(ObjectPool, ReusesTheBlockOfAFailedObjectAndRejectsTooLargeChunks) {
  ObjectPool<std::string, false> pool(1, 1e18F, 0);
  EXPECT_THROW(pool.create(std::string::npos, 'x'), std::length_error);
  const auto* const text = pool.create("text");
  EXPECT_THROW(pool.create(*text), std::bad_alloc);
}

// Compares the table with a reference model in random calls, some of which run out of memory.
TEST(HashTable, MatchesTheModelAndFailedCallsChangeNothing) {
  HashMap<std::string, unsigned> table;
  std::list<std::pair<std::string, unsigned>> slow;  // the elements in the order of iteration
  std::size_t buckets = 31;
  const auto by_bucket = [&](const auto& a, const auto& b) {
    return hash<std::string>()(a.first) % buckets < hash<std::string>()(b.first) % buckets;
  };
  std::mt19937 random(1);
  for (unsigned step = 1; step < 4000; ++step) {
    SCOPED_TRACE(testing::Message() << "step " << step << " of seed 1");
    const std::string key = "the key of number " + std::to_string(random() % (step / 10 + 1));
    const auto has_key = [&](const auto& element) { return element.first == key; };
    const auto found = std::find_if(slow.begin(), slow.end(), has_key);
    const bool present = found != slow.end();
    ASSERT_EQ(std::distance(table.find(key), table.end()), std::distance(found, slow.end()));
    const unsigned long call = random() % 1000;
    const bool inserts = call < 600, erases = !inserts && call < 996, clears = 998 <= call;
    const bool grows = inserts && 10 * slow.size() > 7 * buckets;
    bool changed = inserts != present;
    succeeding_allocations = static_cast<int>(random() % 4);
    failing_allocations = 1;
    try {
      if (call < 200) table[key];
      if (call >= 200 && call < 400) changed = table.insert({key, step});
      if (call >= 400 && inserts) changed = table.try_emplace(key, step);
      if (erases) changed = table.erase(key);
      if (call == 996 || call == 997) table.rehash(buckets);
      if (clears) table.clear(call == 998);
      failing_allocations = 0;
      EXPECT_EQ(changed, inserts != present);
      if (grows) slow.reverse();
      if (grows) buckets = bucket_count_for(buckets + 1);
      if (inserts && !present) slow.emplace_front(key, call < 200 ? 0 : step);
      if (erases && present) slow.erase(found);
      if (clears) slow.clear();
      slow.sort(by_bucket);
    } catch (const std::bad_alloc&) {
    }
    using Iterator = HashMap<std::string, unsigned>::const_iterator;
    ASSERT_EQ(std::list(Iterator(table.begin()), Iterator(table.end())), slow);
    ASSERT_EQ(table.bucket_count(), buckets);
  }
}

}  // namespace norq::hsh
