// Pairs of bytes, each a call and a key, for tables of both kinds of keys.

#include <algorithm>
#include <list>

#include "fuzz.h"

namespace norq {

// The table's rules with lists for chains.
template <class Key>
struct SlowTable {
  std::vector<std::list<Key>> chains = std::vector<std::list<Key>>(31);
  std::size_t count = 0;

  std::list<Key>& chain(const Key& key) {
    return chains[static_cast<std::size_t>(hsh::hash<Key>()(key) % chains.size())];
  }
  bool contains(const Key& key) {
    return std::count(chain(key).begin(), chain(key).end(), key) == 1;
  }
  void rehash(std::size_t wanted) {
    if (wanted <= chains.size()) return;
    const std::size_t primes[] = {73, 151, 313, 643, 1291, 2593};
    std::vector<std::list<Key>> old(
        *std::lower_bound(std::begin(primes), std::end(primes), wanted));
    old.swap(chains);
    for (const std::list<Key>& keys : old) {
      for (const Key& key : keys) chain(key).push_front(key);
    }
  }
  bool insert(const Key& key) {
    if (10 * count > 7 * chains.size()) rehash(chains.size() + 1);
    if (contains(key)) return false;
    chain(key).push_front(key);
    return ++count != 0;
  }
  bool erase(const Key& key) {
    if (!contains(key)) return false;
    chain(key).remove(key);
    return count-- != 0;
  }
};

template <class Key, class MakeKey>
void check(const std::uint8_t* data, std::size_t size, MakeKey make_key) {
  const auto token = std::make_shared<int>();
  hsh::HashMap<Key, std::shared_ptr<int>> table;
  SlowTable<Key> slow;
  std::set<const void*> blocks;  // all that held an element since the last discarding
  std::size_t most = 0;          // elements since then
  for (; size >= 2; data += 2, size -= 2) {
    const unsigned call = data[0] % 16, argument = data[1];
    const Key key = make_key(data[0] / 16 * 256 + data[1]);
    if (call < 4) require(table.insert({key, token}) == slow.insert(key), "insert");
    if (call == 4) {
      std::size_t bucket = 0;
      typename decltype(table)::Bucket* node = nullptr;
      require(table.do_insert({key, token}, &bucket, &node) == slow.insert(key) &&
                  &slow.chains[bucket] == &slow.chain(key) && node->value.first == key,
              "do_insert");
    }
    if (call == 5) require(table.try_emplace(key, token) == slow.insert(key), "try_emplace");
    if (call > 5 && call < 8) slow.insert(key), table[key] = token;
    if (call > 7 && call < 14) require(table.erase(key) == slow.erase(key), "erase");
    const std::size_t wanted = argument % 2 == 0 ? argument * 4 : table.bucket_count();
    if (call == 14) slow.rehash(wanted), table.rehash(wanted);
    if (call == 15 && argument % 8 < 3) {
      if (argument % 8 == 2) table.discard(), blocks.clear(), most = 0;
      if (argument % 8 < 2) table.clear(argument % 8 == 1);
      for (std::list<Key>& chain : slow.chains) chain.clear();
      slow.count = 0;
    }
    const auto found = table.find(key);
    require((found != table.end()) == slow.contains(key), "find");
    if (found != table.end()) blocks.insert(&*found);
    most = std::max(most, table.size());
    require(blocks.size() <= most, "a block is used again before a new one");
    require(table.size() == slow.count && table.bucket_count() == slow.chains.size(), "counts");
    require(token.use_count() == static_cast<long>(slow.count) + 1, "each element lives once");
  }
  auto element = table.begin();
  for (const std::list<Key>& chain : slow.chains) {
    for (const Key& key : chain) require((element++)->first == key, "order");
  }
  require(element == table.end(), "order");
}

}  // namespace norq

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  norq::check<int>(data, size, [](int number) { return number * 37 - 4000; });
  norq::check<std::string>(data, size, [](int number) { return std::to_string(number) + "-key"; });
  return 0;
}
