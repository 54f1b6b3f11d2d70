#ifndef NORQ_UTILS_SORT_H
#define NORQ_UTILS_SORT_H

#include <cstddef>
#include <utility>

namespace norq {

/// The steps of `norq::sort`.
namespace sortimpl {

/// Shorter ranges are cheaper to sort by selection or insertion than to partition.
constexpr std::size_t small_range = 16;

/// After this many nested partitions a subrange is heap-sorted, because its pivots seem to be bad.
/// The limit is large enough for any range that splits reasonably well, and small enough to bound
/// the stack.
constexpr int depth_budget = 32;

/// Puts `value` into the heap a[top] ... a[n - 1], whose top is a hole. The hole moves down to a
/// leaf, always to the larger child; then the value moves up from there to its place. (Floyd's
/// variant of the sift: one comparison per level on the way down, and few on the way up.)
template <class T, class Size, class Compare>
void sift(T* a, Size top, Size n, T value, Compare& cmp) {
  Size hole = top;
  while (hole < n / 2) {  // while it has a left child
    Size child = 2 * hole + 1;
    if (child + 1 < n && cmp(a[child], a[child + 1])) ++child;
    a[hole] = std::move(a[child]);
    hole = child;
  }
  while (hole > top) {
    const Size parent = (hole - 1) / 2;
    if (!cmp(a[parent], value)) break;
    a[hole] = std::move(a[parent]);
    hole = parent;
  }
  a[hole] = std::move(value);
}

template <class T, class Size, class Compare>
void heap_sort(T* a, Size n, Compare& cmp) {
  for (Size top = n / 2; top-- > 0;) {
    sortimpl::sift(a, top, n, T(std::move(a[top])), cmp);
  }
  while (n > 1) {
    --n;
    T value = std::move(a[n]);
    a[n] = std::move(a[0]);
    sortimpl::sift(a, Size{0}, n, std::move(value), cmp);
  }
}

/// Returns the median of x, y and z.
template <class T, class Compare>
const T& median(const T& x, const T& y, const T& z, Compare& cmp) {
  if (cmp(x, y)) return cmp(y, z) ? y : cmp(x, z) ? z : x;
  return cmp(x, z) ? x : cmp(y, z) ? z : y;
}

/// Swaps the elements of a[0] ... a[n - 1] until none of the first i elements is greater than any
/// of the others, and returns i. The scans need no bound: the pivot is the value of an element, and
/// both scans stop at an element equal to it.
template <class T, class Size, class Compare>
Size partition(T* a, Size n, Compare& cmp) {
  using std::swap;
  const T pivot = sortimpl::median(a[0], a[n / 2], a[n - 1], cmp);
  Size i = 0;
  Size j = n - 1;
  for (;;) {
    while (cmp(a[i], pivot)) ++i;
    while (cmp(pivot, a[j])) --j;
    if (i >= j) return i;
    swap(a[i], a[j]);
    ++i;
    --j;
  }
}

/// Partitions the `n` elements from `first` into consecutive subranges. Each is sorted or shorter
/// than `small_range`, and none of its elements is greater than any element of a later subrange, so
/// that one insertion sort can finish. An introspective quicksort (D. Musser, "Introspective
/// Sorting and Selection Algorithms", 1997): after `depth` nested partitions (at least 0) a
/// subrange is heap-sorted, so that the worst case takes O(n log n) comparisons. At most
/// `depth` + 1 calls are nested.
template <class T, class Size, class Compare>
void do_sort(T* first, Size n, Compare cmp, int depth) {  // NOLINT(misc-no-recursion): see above
  while (n >= small_range) {
    if (depth == 0) {
      sortimpl::heap_sort(first, n, cmp);
      return;
    }
    --depth;
    const Size left = sortimpl::partition(first, n, cmp);
    sortimpl::do_sort(first, left, cmp, depth);
    first += left;
    n -= left;
  }
}

template <class T, class Compare>
void selection_sort(T* first, const T* last, Compare& cmp) {
  using std::swap;
  for (; last - first > 1; ++first) {
    T* smallest = first;
    for (T* candidate = first + 1; candidate != last; ++candidate) {
      if (cmp(*candidate, *smallest)) smallest = candidate;
    }
    swap(*first, *smallest);
  }
}

template <class T, class Compare>
void insertion_sort(T* first, const T* last, Compare& cmp) {
  for (T* next = first + 1; next < last; ++next) {
    T x = std::move(*next);
    T* hole = next;
    for (; hole != first && cmp(x, hole[-1]); --hole) *hole = std::move(hole[-1]);
    *hole = std::move(x);
  }
}

}  // namespace sortimpl

/// Sorts [first, last) ascending by `cmp`, a strict weak ordering: cmp(a, b) is true when a must
/// come before b. (Otherwise the behaviour is undefined.)
///
/// Not stable, but deterministic: the order of equal elements depends only on the results of `cmp`
/// and is the same on every platform. Sorts in place, with at most O(n log n) comparisons, without
/// allocating memory itself, and with a stack bounded by a constant. Throws what `cmp` and the
/// moves, copies and swaps of elements throw; the elements are then valid, but their values are
/// unspecified. Elements are moved, except that the pivot of each partition is copied. `Size` is
/// the unsigned type used to count elements.
template <class T, class Size = std::size_t, class Compare>
void sort(T* first, T* last, Compare cmp) {
  const auto n = static_cast<Size>(last - first);
  if (n < sortimpl::small_range) {
    sortimpl::selection_sort(first, last, cmp);
    return;
  }
  sortimpl::do_sort(first, n, cmp, sortimpl::depth_budget);
  sortimpl::insertion_sort(first, last, cmp);
}

}  // namespace norq

#endif  // NORQ_UTILS_SORT_H
