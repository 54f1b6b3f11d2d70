#include "norq/utils/exception.h"

namespace norq {

// The hook of a host that defines none. It is alone in its file, so that the linker does not take
// it from a static archive if the host has its own. It is weak, so that the host's hook also wins
// if norq is linked as object files. (For a shared library the dynamic linker prefers the program's
// definition.)
[[gnu::weak]] void Exception::dump_msg_and_raise_assertion() {}

}  // namespace norq
