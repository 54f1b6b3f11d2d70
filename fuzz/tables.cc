// Pairs of bytes, each a call and a key, for tables of both kinds of keys.

#include <algorithm>
#include <list>
#include <memory>
#include <set>

#include "../tests/session.h"
#include "fuzz.h"

namespace norq {

// The table's rules with lists for chains.
template <class Key>
struct SlowTable {
  std::vector<std::list<Key>> buckets = std::vector<std::list<Key>>(31);
  std::size_t count = 0;

  std::list<Key>& chain(const Key& key) { return buckets[hsh::hash<Key>()(key) % buckets.size()]; }
  void rehash(std::size_t wanted) {
    if (wanted <= buckets.size()) return;
    std::size_t prime = 31;
    for (const std::size_t next : {73u, 151u, 313u, 643u, 1291u, 2593u}) {
      if (prime < wanted) prime = next;
    }
    std::vector<std::list<Key>> old(prime);
    old.swap(buckets);
    for (const std::list<Key>& keys : old) {
      for (const Key& key : keys) chain(key).push_front(key);
    }
  }
  bool contains(const Key& key) {
    return std::count(chain(key).begin(), chain(key).end(), key) == 1;
  }
  bool insert(const Key& key) {
    if (10 * count > 7 * buckets.size()) rehash(buckets.size() + 1);
    if (contains(key)) return false;
    chain(key).push_front(key);
    return ++count != 0;
  }
};

template <class Key, class MakeKey>
void check(const std::uint8_t* data, std::size_t size, MakeKey make_key) {
  const auto token = std::make_shared<int>();
  hsh::HashMap<Key, std::shared_ptr<int>> table;
  SlowTable<Key> slow;
  std::set<const void*> blocks;  // all that ever held an element, since the memory was given back
  std::size_t most = 0;
  for (std::size_t i = 0; i + 1 < size; i += 2) {
    const Key key = make_key(data[i] / 8 * 256 + data[i + 1]);
    switch (data[i] % 8) {
      case 0:
      case 1:
        require(table.insert({key, token}) == slow.insert(key), "insert");
        break;
      case 2:
        slow.insert(key);
        table[key] = token;
        break;
      case 3:
      case 4:
        require(table.erase(key) == slow.contains(key), "erase");
        if (slow.contains(key)) --slow.count;
        slow.chain(key).remove(key);
        break;
      case 5:
        slow.insert(key);
        table.try_emplace(key, token);
        break;
      case 6:
        table.rehash(data[i + 1] * 4u);
        slow.rehash(data[i + 1] * 4u);
        break;
      default:
        if (data[i + 1] % 8 != 0) break;
        if (data[i] / 8 % 4 == 0) table.discard();
        if (data[i] / 8 % 4 != 0) table.clear(data[i] / 8 % 4 == 1);
        if (data[i] / 8 % 4 == 0) blocks.clear(), most = 0;
        for (std::list<Key>& chain : slow.buckets) chain.clear();
        slow.count = 0;
    }
    const auto found = table.find(key);
    require((found != table.end()) == slow.contains(key), "find");
    if (found != table.end()) blocks.insert(&*found);
    most = std::max(most, table.size());
    require(blocks.size() <= most, "a block is used again before a new one");
    require(table.size() == slow.count && table.bucket_count() == slow.buckets.size(), "counts");
    require(token.use_count() == static_cast<long>(slow.count) + 1, "each element lives once");
  }
  auto element = table.begin();
  for (const std::list<Key>& chain : slow.buckets) {
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
