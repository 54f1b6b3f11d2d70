// hook: a host's own diagnostic hook, which tells where an error came from, before it is thrown.
#include <execinfo.h>

#include <array>
#include <cstdlib>
#include <iostream>
#include <string>

#include "norq/options/option_parser.h"

// Declared like this, its name stands in a stack trace as it is.
extern "C" void read_settings(norq::OptionParser& options);

// The library calls this for every error that it is about to throw. `what()` is the start of the
// message; a debugger would stop here.
void norq::Exception::dump_msg_and_raise_assertion() {  // NOLINT(*-make-member-function-const)
  std::array<void*, 16> frames{};                       // NOLINT(*-magic-numbers): deep enough here
  const int depth = backtrace(frames.data(), static_cast<int>(frames.size()));
  char** const names = backtrace_symbols(frames.data(), depth);
  std::cerr << "about to throw: " << what() << '\n';
  for (int i = 1; names != nullptr && i < depth; ++i) {
    const std::string frame = names[i];  // such as "./hook(main+0x2a) [0x401136]"
    const std::size_t name = frame.find('(') + 1;
    const std::string function = frame.substr(name, frame.find('+', name) - name);
    if (function == "read_settings" || function == "main") std::cerr << "  in " << function << '\n';
  }
  std::free(names);
}

void read_settings(norq::OptionParser& options) {
  options.parse_option("port", "eighty", 0);
}

int main() {
  norq::OptionParser options(norq::BOOL_STYLE_NO_PREFIX, false);
  options.add_option("port", norq::OPT_UINT, "");
  try {
    read_settings(options);
  } catch (const norq::Exception& refusal) {
    std::cerr << refusal.what() << '\n';
    return 2;
  }
}
