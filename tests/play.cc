// Plays the commands of standard input under the locale of the environment, whose decimal point it
// prints first. A command behind "> " is printed before what it prints. With an argument, each
// command is run again and again, each time with one more allocation that succeeds, until none
// fails.

#include <clocale>
#include <cstdlib>
#include <iostream>
#include <locale>
#include <new>

#include "session.h"

// The gate for allocations: those by `operator new` anywhere and, by the linker's wrap option,
// whose names these are, those by `malloc` in what is linked statically.
extern "C" void* __real_malloc(std::size_t size);
extern "C" void* __wrap_malloc(std::size_t size) {
  using norq::Starvation;
  const bool fails = Starvation::active && Starvation::left >= 0 && Starvation::left-- == 0;
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

namespace norq {

// Each failure has to be noticed and, of a command of one step, to leave all as it was.
std::string run_starved(Session& session, const std::string& command) {
  const std::set<std::string> of_several_steps = {"args", "file", "fill", "sample"};
  const bool whole = of_several_steps.count(command.substr(0, command.find(' '))) == 0;
  const std::string before = session.view();
  bool line_refused = false;  // for want of memory
  for (long n = 0;; ++n) {
    std::string printed = "(std::bad_alloc)";
    Starvation::left = n;
    try {
      printed = session.run(command);
    } catch (const std::bad_alloc&) {
    }
    const bool starved = std::exchange(Starvation::left, -1) < 0;
    const auto says = [&](const char* text) { return printed.find(text) != std::string::npos; };
    line_refused = line_refused || says(" (std::bad_alloc)");
    require(starved || line_refused || command.rfind("file 0 out", 0) != 0, command);
    if (!starved) return printed;
    // The reason why a line was refused may itself be lost.
    require(says("(std::bad_alloc)") || says("()"), command + " fails at " + std::to_string(n));
    require(!whole || session.view() == before, command + " undone at " + std::to_string(n));
  }
}

}  // namespace norq

int main(int argc, char** /*argv*/) {
  std::ios::sync_with_stdio(false);
  std::locale::global(std::locale(""));
  std::cout << std::localeconv()->decimal_point << '\n';
  norq::Session session;
  for (std::string line; std::getline(std::cin, line);) {
    if (line.rfind("> ", 0) == 0) std::cout << line << '\n';
    if (line.rfind("> ", 0) == 0) line.erase(0, 2);
    std::cout << (argc > 1 ? run_starved(session, line) : session.run(line));
  }
}
