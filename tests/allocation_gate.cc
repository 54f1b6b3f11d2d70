#include <cstdlib>
#include <new>

// How many allocations succeed before one fails; after that, and below 0, all succeed. Counts
// `operator new` everywhere and, by the linker's wrap option, `malloc` in what is linked
// statically.
long allocations_left = -1;

// The names are the linker's.
extern "C" void* __real_malloc(std::size_t size);
extern "C" void* __wrap_malloc(std::size_t size) {
  const bool fails = allocations_left >= 0 && allocations_left-- == 0;
  return fails ? nullptr : __real_malloc(size);
}

void* operator new(std::size_t size) {
  void* const memory = __wrap_malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
