#include "norq/utils/exception.h"

namespace norq {

// The default hook, for programs that define none. It is in a file of its own, so that the linker
// does not load it from a static archive if the program defines a hook. It is weak, so that the
// program's hook also takes precedence if norq is linked as object files. (With a shared library,
// the dynamic linker prefers the program's definition.)
[[gnu::weak]] void Exception::dump_msg_and_raise_assertion() {}

}  // namespace norq
