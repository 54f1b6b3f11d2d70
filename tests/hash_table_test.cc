// Order and growth of tables are compared with a slow reading in fuzz/tables.cc; how they fail is
// in tests/sessions/tables.txt.

#include "norq/utils/hash_table.h"

#include <gtest/gtest.h>

#include <vector>

#include "norq/options/option_parser.h"
#include "norq/utils/string_utils.h"

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
  // The ordinals of the blocks that do not follow the block before them.
  const auto chunk_starts = [](int count, std::size_t size, auto make) {
    std::vector<int> starts;
    const char* next = nullptr;
    for (int i = 0; i < count; ++i) {
      const auto* const block = reinterpret_cast<const char*>(make(i));
      if (block != next) starts.push_back(i);
      next = block + size;
    }
    return starts;
  };
  for (const float factor : {2.5f, 1e30f}) {
    MemoryPool<32, false> pool(2, factor, 6);
    std::vector<void*> blocks;
    const auto allocate = [&](int) { return blocks.emplace_back(pool.allocate()); };
    const int third = factor < 3 ? 7 : 8;
    EXPECT_EQ(chunk_starts(15, 32, allocate), (std::vector<int>{0, 2, third, third + 6}));
    for (const std::size_t i : {3u, 0u, 7u}) pool.recycle(blocks[i]);
    for (const std::size_t i : {7u, 0u, 3u}) EXPECT_EQ(pool.allocate(), blocks[i]);
  }
  MemoryPool<32, false> unlimited(1, 1e18f, 0);
  unlimited.allocate();
  EXPECT_THROW(unlimited.allocate(), std::bad_alloc);

  HashSet<int> set;
  const auto insert = [&](int key) { return set.insert(key), &*set.find(key); };
  EXPECT_EQ(chunk_starts(25000, sizeof(HashSet<int>::Bucket), insert),
            (std::vector<int>{0, 16, 48, 112, 240, 496, 1008, 2032, 4080, 8176, 16368, 24560}));
}

}  // namespace norq::hsh

namespace norq {

#ifdef __SANITIZE_ADDRESS__
TEST(HashTable, UsingARemovedElementIsReported) {
  OptionParser parser(BOOL_STYLE_VALUE, false);
  parser.add_option("key", OPT_INT, "");
  const Option* const option = parser.get_option("key");
  parser.del_option("key");
  EXPECT_DEATH(std::exit(option->index), "use-after-poison");
}
#endif

std::vector<std::string> collect(str::Tokenizer tokens) {
  return {tokens.begin(), tokens.end()};
}

// Its token is made when it is asked for.
struct OneToken : str::TokenizerBase {
  str::TokenIterator begin() override { return {this, 0}; }
  str::TokenIterator end() override { return {this, std::string::npos}; }
  std::size_t next_pos() override { return std::string::npos; }
  const std::string& cur_token() override { return token = "one"; }
  std::string token;
};

TEST(Tokenizer, TakesATemporaryTextAndAHostsOwnTokenizer) {
  EXPECT_EQ(collect(str::get_tokenizer("a=b=c", "=", 1)), (std::vector<std::string>{"a", "b=c"}));
  EXPECT_EQ(collect(str::Tokenizer(new OneToken)), std::vector<std::string>{"one"});
}

}  // namespace norq
