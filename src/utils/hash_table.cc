#include "norq/utils/hash_table.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace norq::hsh {

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

std::uint64_t hash<std::string>::operator()(const std::string& key) const noexcept {
  constexpr std::uint64_t factor = 5;
  std::uint64_t h = 0;
  for (const char byte : key) {
    if (byte == '\0') break;
    h = h * factor +
        static_cast<std::uint64_t>(static_cast<std::int64_t>(static_cast<signed char>(byte)));
  }
  return h;
}

}  // namespace norq::hsh
