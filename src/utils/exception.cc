#include "norq/utils/exception.h"

#include <locale>

namespace norq {

Exception::Exception(const std::string& text, bool raise) {
  msg.imbue(std::locale::classic());
  *this << text;
  if (raise) dump_msg_and_raise_assertion();
}

Exception::Exception(const Exception& other) : std::exception(other) {
  msg.imbue(std::locale::classic());
  *this << other.msg.str();
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
