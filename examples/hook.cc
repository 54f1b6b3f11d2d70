// hook: a program's own diagnostic hook, which prints where an error comes from.
#include <iostream>

#include "norq/options/option_parser.h"

namespace {

// What the program is doing, and the activity that this is part of.
struct Activity {
  explicit Activity(const char* what) : name(what), outer(innermost) { innermost = this; }
  Activity(const Activity&) = delete;
  Activity& operator=(const Activity&) = delete;
  ~Activity() { innermost = outer; }

  const char* name;
  const Activity* outer;
  static inline const Activity* innermost = nullptr;
};

void read_environment(norq::OptionParser& options, const std::string& port) {
  const Activity reading("the environment, PORT");
  options.parse_option("port", port, 1);
}

}  // namespace

// norq calls this before it throws an error, when the stack is still complete. A program could also
// stop in a debugger here, or print a stack trace.
void norq::Exception::dump_msg_and_raise_assertion() {  // NOLINT(*-make-member-function-const)
  std::cerr << "about to throw: " << what() << '\n';
  for (const Activity* activity = Activity::innermost; activity != nullptr;
       activity = activity->outer) {
    std::cerr << "  in " << activity->name << '\n';
  }
}

int main() {
  const Activity start("the start of the program");
  norq::OptionParser options(norq::BOOL_STYLE_NO_PREFIX, false);
  options.add_option("port", norq::OPT_UINT, "");
  try {
    read_environment(options, "eighty");
  } catch (const norq::Exception& error) {
    std::cerr << error.what() << '\n';
    return 2;
  }
}
