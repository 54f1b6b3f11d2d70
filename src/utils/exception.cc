#include "norq/utils/exception.h"

#include <locale>
#include <new>

namespace norq {

std::stringbuf::int_type Exception::Buffer::overflow(int_type byte) {
  try {
    const int_type result = std::stringbuf::overflow(byte);
    // Some standard libraries report a failed allocation by returning end-of-file.
    if (traits_type::eq_int_type(result, traits_type::eof())) throw std::bad_alloc();
    return result;
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

void Exception::start() noexcept {
  buffer.thrown = nullptr;
}

void Exception::rethrow() const {
  if (buffer.thrown != nullptr) std::rethrow_exception(buffer.thrown);
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
