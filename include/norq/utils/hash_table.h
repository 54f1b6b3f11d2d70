#ifndef NORQ_UTILS_HASH_TABLE_H
#define NORQ_UTILS_HASH_TABLE_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <new>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace norq {

namespace hsh {

/// If norq is built with AddressSanitizer, marks a pool's block as free or used, so that accesses
/// to free blocks are reported. Not inline, so that it depends only on how norq itself was built.
void mark_block(void* block, std::size_t size, bool is_free) noexcept;

/// The chunks of a pool. Only the destructor releases them.
class ChunkList {
 public:
  ///@{
  /// See `MemoryPool`.
  ChunkList(std::size_t first, float factor, std::size_t largest) noexcept;
  ChunkList(const ChunkList&) = delete;
  ChunkList& operator=(const ChunkList&) = delete;
  ~ChunkList();
  ///@}

  /// Allocates the next chunk: returns its first block and writes the end of its last block to
  /// `*end`. Throws `std::bad_alloc`, and changes nothing, if out of memory.
  unsigned char* allocate(std::size_t block_size, unsigned char** end);

 private:
  struct Chunk;

  std::size_t next_block_count;
  float growth_factor;
  std::size_t largest_block_count;
  Chunk* newest = nullptr;
};

}  // namespace hsh

/// Allocates and recycles uninitialised blocks of `BlockSize` bytes, a multiple of a pointer's
/// size. A block is aligned for every type of its size that `malloc` can align.
///
/// Recycled blocks are used first (last in, first out), then unused blocks in ascending address
/// order. Blocks are parts of chunks; each chunk comes from one call of `malloc`. From one chunk to
/// the next the block count is multiplied by the growth factor, up to a limit. Only the destructor
/// releases chunks. The second template argument is reserved and must be false.
template <std::size_t BlockSize, bool Reserved>
class MemoryPool {
  static_assert(!Reserved, "the second template argument is reserved");
  static_assert(BlockSize >= sizeof(void*) && BlockSize % alignof(void*) == 0,
                "a free block holds the pointer to the next one");

 public:
  /// The first chunk has `first` blocks (at least 1), each later one `factor` (at least 1) times as
  /// many as the one before it, but at most `largest` (0: no limit). Allocates nothing yet.
  MemoryPool(std::size_t first, float factor, std::size_t largest) noexcept
      : chunks(first, factor, largest) {}

  /// Returns a block, valid until it is recycled or the pool is destroyed. Throws `std::bad_alloc`,
  /// and changes nothing, if a new chunk is needed and cannot be allocated.
  void* allocate() {
    if (free_blocks != nullptr) {
      FreeBlock* const block = free_blocks;
      hsh::mark_block(block, BlockSize, false);
      free_blocks = block->next;
      return block;
    }
    if (untouched == untouched_end) untouched = chunks.allocate(BlockSize, &untouched_end);
    void* const block = untouched;
    untouched += BlockSize;
    return block;
  }

  /// Makes a block that `allocate` of this pool returned available again.
  void recycle(void* block) noexcept {
    free_blocks = ::new (block) FreeBlock{free_blocks};
    hsh::mark_block(block, BlockSize, true);
  }

 private:
  struct FreeBlock {
    FreeBlock* next;
  };

  hsh::ChunkList chunks;
  FreeBlock* free_blocks = nullptr;
  // The unused blocks of the newest chunk. They are not in the free list, so that the memory of a
  // large chunk is not touched before it is needed.
  unsigned char* untouched = nullptr;
  unsigned char* untouched_end = nullptr;
};

/// A `MemoryPool` of blocks that hold objects of type T. Its destructor does not destroy objects
/// that are still alive; free them first.
template <class T, bool Reserved>
class ObjectPool : public MemoryPool<sizeof(T), Reserved> {
  static_assert(alignof(T) <= alignof(std::max_align_t), "chunks are aligned by malloc");

 public:
  using MemoryPool<sizeof(T), Reserved>::MemoryPool;

  /// Returns a new object constructed from `arguments`. Throws `std::bad_alloc` and what the
  /// constructor throws; if the constructor throws, the block is recycled.
  template <class... Arguments>
  T* create(Arguments&&... arguments) {
    Block block{this, this->allocate()};
    return block.keep(::new (block.address) T(std::forward<Arguments>(arguments)...));
  }

  /// Destroys `object`, which is in a block of this pool, and recycles the block.
  void free(T* object) noexcept {
    object->~T();
    this->recycle(object);
  }

 private:
  // Recycles the block unless an object was constructed in it. (Not a try block: programs may
  // include this header in code that is compiled without exceptions.)
  struct Block {
    ~Block() {
      if (address != nullptr) pool->recycle(address);
    }
    T* keep(T* object) noexcept {
      address = nullptr;
      return object;
    }
    ObjectPool* pool;
    void* address;
  };
};

/// Hash tables whose iteration order and growth are part of the contract.
namespace hsh {

/// The hash functions of the tables. They are part of the contract, because they determine the
/// iteration order.
template <class Key>
struct hash;

/// Fast, and good enough for names; not collision-resistant.
template <>
struct hash<std::string> {
  /// h = 5 h + b for each byte b, read as a signed 8-bit number, up to the first NUL byte; modulo
  /// 2^64.
  std::uint64_t operator()(std::string_view key) const noexcept;
};

/// Puts consecutive numbers into consecutive buckets.
template <>
struct hash<int> {
  /// The int itself, sign-extended to 64 bits.
  std::uint64_t operator()(int key) const noexcept {
    return static_cast<std::uint64_t>(static_cast<std::int64_t>(key));
  }
};

/// Extracts the key of a map's element.
template <class Key, class T>
struct GetKey_pair {
  /// The first member.
  const Key& operator()(const std::pair<Key, T>& value) const noexcept { return value.first; }
};

/// Extracts the key of a set's element.
template <class Key>
struct GetKey_identity {
  /// The element itself.
  const Key& operator()(const Key& value) const noexcept { return value; }
};

/// The bucket count for `wanted` buckets: the smallest of the primes 31, 73, 151, 313, 643, ...,
/// 4294867387 that is not less than `wanted`, or else the largest. Each prime is about twice the
/// one before, so that growth takes constant time per insertion.
std::size_t bucket_count_for(std::size_t wanted) noexcept;

/// A chained hash table of Values with unique Keys, the base of `HashMap` and `HashSet`.
///
/// What a user may rely on:
/// - Elements do not move: a pointer or reference to an element is valid until the element is
///   erased or the table is cleared or destroyed. An iterator is valid until then or until the
///   table grows.
/// - Iteration visits the buckets in ascending order, and each chain from its head, the element
///   that was linked last. The order depends only on the keys and the sequence of calls.
/// - A new table has 31 buckets. An insertion attempt, even of a key that is present, first grows
///   the table to the next prime if its load is above 0.7: at 22, 52, 106, 220, ... elements.
/// - An insertion that throws leaves the elements and their order unchanged. The only other members
///   that may throw are the constructor, `new_Bucket`, `rehash` and `clear(true)`; they then leave
///   the table unchanged.
/// - Find, insert and erase take constant time on average, for keys that hash well.
///
/// Invariants of the implementation:
/// - Every element is in the chain of bucket Hash(key) modulo the bucket count, and in no other.
/// - `size()` is the number of nodes in all chains; no two of them have equal keys.
/// - The bucket count never decreases. Nodes are in the table's pool, whose chunks have 16, 32, 64,
///   ... up to 8192 nodes, and return to it when erased.
///
/// GetKey, Hash and Equal hold no data and do not throw. Tables cannot be copied or assigned.
template <class Value, class GetKey, class Key, class Hash, class Equal>
class Hashtable {
  static_assert(std::is_empty_v<GetKey> && std::is_empty_v<Hash> && std::is_empty_v<Equal>,
                "function objects are constructed where they are needed");

 public:
  /// A node of a chain.
  struct Bucket {
    /// Constructs the value from `arguments`; its key must hash to `hash_of_key`.
    template <class... Arguments>
    explicit Bucket(std::uint64_t hash_of_key, Arguments&&... arguments)
        : key_hash(hash_of_key), value(std::forward<Arguments>(arguments)...) {}

    Bucket* next = nullptr;  ///< null at the end of the chain
    std::uint64_t key_hash;  ///< stored so that growth reads no keys and a search reads few
    Value value;             ///< the element
  };

  /// A forward iterator. Only the second member of a map's element may be changed through it; a
  /// set's element may not be changed.
  template <bool is_const>
  class BasicIterator {
   public:
    ///@{
    /// For `std::iterator_traits`.
    using iterator_category = std::forward_iterator_tag;
    using value_type = Value;
    using difference_type = std::ptrdiff_t;
    using reference = std::conditional_t<is_const, const Value&, Value&>;
    using pointer = std::conditional_t<is_const, const Value*, Value*>;
    ///@}

    BasicIterator() = default;

    /// Converts a non-const iterator to a const iterator.
    template <bool other_is_const, class = std::enable_if_t<is_const && !other_is_const>>
    BasicIterator(const BasicIterator<other_is_const>& other) noexcept
        : node(other.node), chain(other.chain), last_chain(other.last_chain) {}

    ///@{
    /// As for every forward iterator. An end iterator must not be dereferenced or incremented. Two
    /// iterators are equal if they are at the same element or both at an end.
    reference operator*() const noexcept { return node->value; }
    pointer operator->() const noexcept { return &node->value; }
    BasicIterator& operator++() noexcept {
      node = node->next;
      skip_empty_chains();
      return *this;
    }
    BasicIterator operator++(int) noexcept {
      BasicIterator before = *this;
      ++*this;
      return before;
    }
    friend bool operator==(const BasicIterator& a, const BasicIterator& b) noexcept {
      return a.node == b.node;
    }
    friend bool operator!=(const BasicIterator& a, const BasicIterator& b) noexcept {
      return a.node != b.node;
    }
    ///@}

   private:
    friend class Hashtable;
    friend class BasicIterator<true>;

    BasicIterator(Bucket* const* first_chain, Bucket* const* after_last_chain, Bucket* at) noexcept
        : node(at), chain(first_chain), last_chain(after_last_chain) {}

    void skip_empty_chains() noexcept {
      while (node == nullptr && ++chain != last_chain) node = *chain;
    }

    Bucket* node = nullptr;               // null at the end
    Bucket* const* chain = nullptr;       // the chain that `node` is in
    Bucket* const* last_chain = nullptr;  // one past the last
  };

  ///@{
  /// The iterators of a non-const and of a const table.
  using iterator = BasicIterator<false>;
  using const_iterator = BasicIterator<true>;
  ///@}

  Hashtable() = default;
  Hashtable(const Hashtable&) = delete;
  Hashtable& operator=(const Hashtable&) = delete;
  ~Hashtable() {
    if (count != 0) visit_nodes(buckets, [](Bucket* node) { node->~Bucket(); });
  }

  ///@{
  /// The numbers of elements and of buckets.
  std::size_t size() const noexcept { return count; }
  std::size_t bucket_count() const noexcept { return buckets.size(); }
  ///@}

  /// Whether the next insertion attempt, even of a key that is present, makes the table grow. To
  /// avoid growth for such a key, call this first and, if it returns true, look for the key. (The
  /// floating-point types of the load and the comparison determine the growth points.)
  bool grows_next() const noexcept {
    const float load = static_cast<float>(count) / static_cast<float>(buckets.size());
    return static_cast<double>(load) > max_load;
  }

  ///@{
  /// From the head of the first chain that is not empty to the end of the last. `begin` takes time
  /// proportional to the number of empty buckets before the first element.
  iterator begin() noexcept { return begin_of<iterator>(); }
  iterator end() noexcept { return end_of<iterator>(); }
  const_iterator begin() const noexcept { return begin_of<const_iterator>(); }
  const_iterator end() const noexcept { return end_of<const_iterator>(); }
  ///@}

  ///@{
  /// The element with this key, or `end()`. An empty table does not hash the key.
  iterator find(const Key& key) noexcept { return find_as<iterator>(key); }
  const_iterator find(const Key& key) const noexcept { return find_as<const_iterator>(key); }
  ///@}

  /// Inserts a copy of `value`; returns false, and changes no element, if its key is present.
  bool insert(const Value& value) { return emplace(GetKey()(value), value).inserted; }

  /// Like `insert`; also writes the key's bucket through `bucket` and the key's node through
  /// `node`. Either may be null.
  bool do_insert(const Value& value, std::size_t* bucket, Bucket** node) {
    const Insertion result = emplace(GetKey()(value), value);
    if (bucket != nullptr) *bucket = result.bucket;
    if (node != nullptr) *node = result.node;
    return result.inserted;
  }

  /// Removes the element with this key; false if there is none. `key` may be part of that element.
  bool erase(const Key& key) noexcept {
    if (count == 0) return false;
    Bucket** const link = find_link(key);
    Bucket* const node = *link;
    if (node == nullptr) return false;
    *link = node->next;
    --count;
    pool.free(node);
    return true;
  }

  /// Removes every element. Keeps the bucket count and the pool's memory. If `reallocate` is true,
  /// also replaces the bucket array with a new one of the same length. Visits all elements and
  /// buckets.
  void clear(bool reallocate) {
    std::vector<Bucket*> fresh(reallocate ? buckets.size() : 0);
    if (count != 0) {
      visit_nodes(buckets, [this](Bucket* node) { pool.free(node); });
      for (Bucket*& chain : buckets) chain = nullptr;
      count = 0;
    }
    if (reallocate) buckets.swap(fresh);
  }

  /// Sets the bucket count to `bucket_count_for(wanted)`, unless it is at least `wanted` already.
  void rehash(std::size_t wanted) {
    if (buckets.size() >= wanted) return;
    std::vector<Bucket*> grown(bucket_count_for(wanted));
    relink(&grown);
  }

  /// Returns a node from this table's pool with a copy of `value`, which is in no chain. The table
  /// does not destroy the node: if the value needs a destructor call, the caller must make it.
  Bucket* new_Bucket(const Value& value) { return pool.create(Hash()(GetKey()(value)), value); }

 protected:
  /// The result of an insertion attempt.
  struct Insertion {
    Bucket* node;        ///< the node with the key
    std::size_t bucket;  ///< the index of the node's chain
    bool inserted;       ///< false if the key was present
  };

  /// Constructs an element from `arguments` directly in its node, unless `key` is present. The key
  /// of the element must be `key`.
  template <class... Arguments>
  Insertion emplace(const Key& key, Arguments&&... arguments) {
    // What can throw comes first: a larger bucket array, if one is due, and the node. A failure
    // then leaves the elements unchanged, and also their order, because the table has not grown.
    std::vector<Bucket*> grown(grows_next() ? bucket_count_for(buckets.size() + 1) : 0);
    const std::uint64_t key_hash = Hash()(key);
    std::size_t bucket = bucket_of(key_hash);
    Bucket* node = *walk(&buckets[bucket], key_hash, key);
    const bool inserted = node == nullptr;
    if (inserted) node = pool.create(key_hash, std::forward<Arguments>(arguments)...);

    // The table grows before the node is linked, so that the node is the head of its chain.
    if (!grown.empty()) {
      relink(&grown);
      bucket = bucket_of(key_hash);
    }
    if (inserted) {
      prepend(node, bucket);
      ++count;
    }
    return {node, bucket, inserted};
  }

 private:
  // Up to this load, a search visits less than one node with another key on average.
  static constexpr double max_load = 0.7;

  // The options of a small program fit into the first chunk. Doubling keeps the calls of malloc
  // few; the limit bounds the unused memory of a large table.
  static constexpr std::size_t first_chunk = 16;
  static constexpr float chunk_growth = 2;
  static constexpr std::size_t largest_chunk = 8192;

  std::size_t bucket_of(std::uint64_t key_hash) const noexcept {
    return static_cast<std::size_t>(key_hash % buckets.size());
  }

  // Calls `visit` for each node, chain by chain, from the head; `visit` may relink or destroy the
  // node. The chains are moved to the front of `chains` first, because a branch on whether a bucket
  // is empty is often mispredicted.
  template <class Visit>
  static void visit_nodes(std::vector<Bucket*>& chains, Visit visit) noexcept {
    std::size_t used = 0;
    for (Bucket* const chain : chains) {
      chains[used] = chain;
      used += chain != nullptr ? 1 : 0;
    }
    for (std::size_t i = 0; i < used; ++i) {
      for (Bucket* node = chains[i]; node != nullptr;) {
        Bucket* const successor = node->next;
        visit(node);
        node = successor;
      }
    }
  }

  // Moves all nodes to the chains of `fresh`. Afterwards `fresh` is the old bucket array.
  void relink(std::vector<Bucket*>* fresh) noexcept {
    buckets.swap(*fresh);
    visit_nodes(*fresh, [this](Bucket* node) { prepend(node, bucket_of(node->key_hash)); });
  }

  void prepend(Bucket* node, std::size_t bucket) noexcept {
    node->next = buckets[bucket];
    buckets[bucket] = node;
  }

  // The link to the node with this key, or the null link at the end of its chain.
  Bucket** find_link(const Key& key) noexcept {
    const std::uint64_t key_hash = Hash()(key);
    return walk(&buckets[bucket_of(key_hash)], key_hash, key);
  }

  template <class Link>
  static Link* walk(Link* link, std::uint64_t key_hash, const Key& key) noexcept {
    const auto is_it = [&](const Bucket& node) {
      return node.key_hash == key_hash && Equal()(GetKey()(node.value), key);
    };
    while (*link != nullptr && !is_it(**link)) link = &(*link)->next;
    return link;
  }

  template <class Iterator>
  Iterator begin_of() const noexcept {
    if (count == 0) return end_of<Iterator>();
    Iterator it(buckets.data(), buckets.data() + buckets.size(), buckets.front());
    it.skip_empty_chains();
    return it;
  }

  template <class Iterator>
  Iterator end_of() const noexcept {
    Bucket* const* const last_chain = buckets.data() + buckets.size();
    return Iterator(last_chain, last_chain, nullptr);
  }

  template <class Iterator>
  Iterator find_as(const Key& key) const noexcept {
    if (count == 0) return end_of<Iterator>();
    const std::uint64_t key_hash = Hash()(key);
    Bucket* const* const chain = &buckets[bucket_of(key_hash)];
    Bucket* const node = *walk(chain, key_hash, key);
    return node == nullptr ? end_of<Iterator>()
                           : Iterator(chain, buckets.data() + buckets.size(), node);
  }

  ObjectPool<Bucket, false> pool{first_chunk, chunk_growth, largest_chunk};
  std::vector<Bucket*> buckets = std::vector<Bucket*>(bucket_count_for(0));
  std::size_t count = 0;
};

/// A map from Key to T: a `Hashtable` whose elements are pairs of the two.
template <class Key, class T, class Hash = hash<Key>, class Equal = std::equal_to<Key>>
class HashMap : public Hashtable<std::pair<Key, T>, GetKey_pair<Key, T>, Key, Hash, Equal> {
 public:
  /// The value of `key`, after an attempt to insert `key` with `T()`.
  T& operator[](const Key& key) { return emplace_pair(key).node->value.second; }

  /// Inserts `key` with a T constructed from `arguments`, in place; returns false, and constructs
  /// nothing, if the key is present.
  template <class... Arguments>
  bool try_emplace(const Key& key, Arguments&&... arguments) {
    return emplace_pair(key, std::forward<Arguments>(arguments)...).inserted;
  }

 private:
  template <class... Arguments>
  typename HashMap::Insertion emplace_pair(const Key& key, Arguments&&... arguments) {
    return this->emplace(key, std::piecewise_construct, std::forward_as_tuple(key),
                         std::forward_as_tuple(std::forward<Arguments>(arguments)...));
  }
};

/// A set of Keys: a `Hashtable` whose elements are their own keys.
template <class Key, class Hash = hash<Key>, class Equal = std::equal_to<Key>>
class HashSet : public Hashtable<Key, GetKey_identity<Key>, Key, Hash, Equal> {};

}  // namespace hsh

}  // namespace norq

#endif  // NORQ_UTILS_HASH_TABLE_H
