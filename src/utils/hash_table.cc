#include "norq/utils/hash_table.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <new>
#include <utility>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define NORQ_HAS_ASAN
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define NORQ_HAS_ASAN
#endif
#ifdef NORQ_HAS_ASAN
#include <sanitizer/asan_interface.h>
#endif

namespace norq::hsh {

void mark_block([[maybe_unused]] void* block, [[maybe_unused]] std::size_t size,
                [[maybe_unused]] bool is_free) noexcept {
#ifdef NORQ_HAS_ASAN
  (is_free ? __asan_poison_memory_region : __asan_unpoison_memory_region)(block, size);
#endif
}

struct alignas(std::max_align_t) ChunkList::Chunk {  // its blocks follow, aligned like it
  Chunk* previous;
};

ChunkList::ChunkList(std::size_t first, float factor, std::size_t largest) noexcept
    : next_block_count(first), growth_factor(factor), largest_block_count(largest) {}

ChunkList::~ChunkList() {
  while (newest != nullptr) std::free(std::exchange(newest, newest->previous));
}

unsigned char* ChunkList::allocate(std::size_t block_size, unsigned char** end) {
  const std::size_t block_count = next_block_count;
  const std::size_t most = (std::numeric_limits<std::size_t>::max() - sizeof(Chunk)) / block_size;
  if (block_count > most) throw std::bad_alloc();
  void* const memory = std::malloc(sizeof(Chunk) + block_count * block_size);
  if (memory == nullptr) throw std::bad_alloc();
  newest = ::new (memory) Chunk{newest};

  const float grown = static_cast<float>(block_count) * growth_factor;
  const bool countable = grown < static_cast<float>(std::numeric_limits<std::size_t>::max());
  next_block_count = countable ? static_cast<std::size_t>(grown) : most;
  if (largest_block_count != 0 && next_block_count > largest_block_count) {
    next_block_count = largest_block_count;
  }

  unsigned char* const blocks = static_cast<unsigned char*>(memory) + sizeof(Chunk);
  *end = blocks + block_count * block_size;
  return blocks;
}

namespace {

constexpr std::array<std::uint64_t, 28> primes = {
    31,       73,        151,       313,       643,        1291,       2593,
    5233,     10501,     21013,     42073,     84181,      168451,     337219,
    674701,   1349473,   2699299,   5398891,   10798093,   21596719,   43193641,
    86387383, 172775299, 345550609, 691101253, 1382202559, 2764405229, 4294867387,
};

}  // namespace

std::size_t bucket_count_for(std::size_t wanted) noexcept {
  return static_cast<std::size_t>(
      *std::lower_bound(primes.begin(), std::prev(primes.end()), wanted));
}

std::uint64_t hash<std::string>::operator()(std::string_view key) const noexcept {
  key = key.substr(0, key.find('\0'));
  const auto byte = [&](std::size_t index) {
    return static_cast<std::uint64_t>(std::int64_t{static_cast<signed char>(key[index])});
  };
  constexpr std::uint64_t factor = 5;
  constexpr std::uint64_t square = factor * factor;
  std::uint64_t h = 0;
  std::size_t index = 0;
  // Four bytes at a time: of four multiplications, only one needs the result of the previous round.
  for (; index + 4 <= key.size(); index += 4) {
    h = h * (square * square) + byte(index) * (square * factor) + byte(index + 1) * square +
        byte(index + 2) * factor + byte(index + 3);
  }
  for (; index < key.size(); ++index) h = h * factor + byte(index);
  return h;
}

}  // namespace norq::hsh
