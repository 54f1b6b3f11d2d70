#include "norq/utils/exception.h"

#include <locale>
#include <utility>

namespace norq {

std::stringbuf::int_type Exception::Buffer::overflow(int_type byte) {
  try {
    return std::stringbuf::overflow(byte);
  } catch (...) {
    thrown = std::current_exception();
    throw;
  }
}

Exception::Exception(const std::string& text, bool raise) {
  msg.imbue(std::locale::classic());
  *this << text;
  if (raise) dump_msg_and_raise_assertion();
}

Exception::Exception(const Exception& other) : Exception(other.buffer.str(), false) {}

Exception::~Exception() = default;

void Exception::rethrow() {
  if (buffer.thrown != nullptr) std::rethrow_exception(std::exchange(buffer.thrown, nullptr));
}

const char* Exception::what() const noexcept {
  try {
    what_buf = buffer.str();
    return what_buf.c_str();
  } catch (...) {
    return "";
  }
}

}  // namespace norq
