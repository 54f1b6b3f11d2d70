// Makes allocations fail where a test asks for it: those by `operator new` anywhere and, by the
// linker's wrap option, those by `malloc` in what is linked statically.

#include <cstdlib>
#include <new>

#include "session.h"

// The names are the linker's.
extern "C" void* __real_malloc(std::size_t size);
extern "C" void* __wrap_malloc(std::size_t size) {
  const bool fails =
      norq::Starvation::active && norq::Starvation::left >= 0 && norq::Starvation::left-- == 0;
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
