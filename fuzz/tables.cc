// Pairs of bytes, each a call and a key.

#include "fuzz.h"

namespace norq {

// The table's rules, read on its keys in the order of iteration.
struct SlowTable {
  Strings keys;
  std::size_t bucket_count = 31;

  auto bucket(const std::string& key) const { return hsh::hash<std::string>()(key) % bucket_count; }
  auto find(const std::string& key) { return std::find(keys.begin(), keys.end(), key); }
  void link(const std::string& key) {
    const auto not_before = [&](const std::string& other) { return bucket(other) >= bucket(key); };
    keys.insert(std::find_if(keys.begin(), keys.end(), not_before), key);
  }
  void rehash(std::size_t wanted) {
    if (wanted <= bucket_count) return;
    const std::size_t primes[] = {73, 151, 313, 643, 1291, 2593, 5233, 10501};
    bucket_count = *std::lower_bound(std::begin(primes), std::end(primes), wanted);
    for (const std::string& key : std::exchange(keys, {})) link(key);
  }
  bool insert(const std::string& key) {
    if (10 * keys.size() > 7 * bucket_count) rehash(bucket_count + 1);
    if (find(key) != keys.end()) return false;
    return link(key), true;
  }
  bool erase(const std::string& key) {
    if (find(key) == keys.end()) return false;
    return keys.erase(find(key)), true;
  }
};

void check(const std::string& input) {
  const auto token = std::make_shared<int>();
  hsh::HashMap<std::string, std::shared_ptr<int>> table;
  SlowTable slow;
  std::set<const void*> blocks;  // all that held an element
  std::size_t most = 0;
  for (std::size_t i = 0; i + 1 < input.size(); i += 2) {
    const unsigned call = input[i] & 15, argument = input[i + 1] & 255;
    const std::string key = std::to_string((input[i] & 0xf0) * 16u + argument) + "-key";
    if (call < 4) require(table.insert({key, token}) == slow.insert(key), "insert");
    if (call == 4) {
      std::size_t bucket = 0;
      decltype(table)::Bucket* node = nullptr;
      require(table.do_insert({key, token}, &bucket, &node) == slow.insert(key) &&
                  bucket == slow.bucket(key) && node->value.first == key,
              "do_insert");
    }
    if (call == 5) require(table.try_emplace(key, token) == slow.insert(key), "try_emplace");
    if (call > 5 && call < 8) slow.insert(key), table[key] = token;
    if (call > 7 && call < 14) require(table.erase(key) == slow.erase(key), "erase");
    const std::size_t wanted = argument % 2 == 0 ? argument * 4 : table.bucket_count();
    if (call == 14) slow.rehash(wanted), table.rehash(wanted);
    const unsigned emptying = call == 15 ? argument % 8 : 7;  // in two ways, or not
    if (emptying < 2) table.clear(emptying == 1), slow.keys.clear();
    const auto found = table.find(key);
    require((found != table.end()) == (slow.find(key) != slow.keys.end()), "find");
    if (found != table.end()) blocks.insert(&*found);
    most = std::max(most, table.size());
    require(blocks.size() <= most, "a block is used again before a new one");
    require(table.size() == slow.keys.size() && table.bucket_count() == slow.bucket_count,
            "counts");
    require(token.use_count() == 1 + long(table.size()), "each element lives once");
  }
  auto element = table.begin();
  for (const std::string& key : slow.keys) require((element++)->first == key, "order");
}

}  // namespace norq
