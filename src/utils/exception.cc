#include "norq/utils/exception.h"

#include <locale>

namespace norq {

namespace {

// A stream of its own swallows the exceptions of its buffer. Here they must come out, lest a
// message be cut short where memory ends.
void prepare(std::ostringstream& msg) {
  msg.imbue(std::locale::classic());
  msg.exceptions(std::ios_base::badbit);
}

}  // namespace

Exception::Exception(const std::string& text, bool raise) {
  prepare(msg);
  msg << text;
  if (raise) dump_msg_and_raise_assertion();
}

Exception::Exception(const Exception& other) : std::exception(other) {
  prepare(msg);
  msg << other.msg.str();
}

Exception::~Exception() = default;

const char* Exception::what() const noexcept {
  try {
    what_buf = msg.str();
    return what_buf.c_str();
  } catch (...) {
    return "";
  }
}

}  // namespace norq
