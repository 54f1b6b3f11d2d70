#include "norq/utils/exception.h"

namespace norq {

// The hook of a host that defines none. It stands alone in its file, so that a static archive
// leaves it out where the host brings its own, and it is weak, so that the host's wins among object
// files as well. (In a shared library the dynamic linker prefers the program's definition.)
[[gnu::weak]] void Exception::dump_msg_and_raise_assertion() {}

}  // namespace norq
