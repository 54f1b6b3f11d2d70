#include "support.h"

#include <cstdlib>

// The linker redirects calls of malloc to __wrap_malloc, and of __real_malloc to malloc (--wrap).
extern "C" void* __real_malloc(std::size_t size);
extern "C" [[gnu::visibility("default")]] void* __wrap_malloc(std::size_t size) {
  using namespace norq;
  if (failing_allocations == 0 || succeeding_allocations-- > 0) return __real_malloc(size);
  --failing_allocations;
  return nullptr;
}
void* operator new(std::size_t size) {
  void* const block = std::malloc(size);
  return block != nullptr ? block : throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
  std::free(block);
}

void norq::Exception::dump_msg_and_raise_assertion() {
  const int failing = std::exchange(failing_allocations, 0);  // the hook must not throw
  announced.append(what()) += ';';
  failing_allocations = failing;
}
