#ifndef NORQ_UTILS_EXCEPTION_H
#define NORQ_UTILS_EXCEPTION_H

#include <exception>
#include <new>
#include <sstream>
#include <string>

namespace norq {

/// The base of everything that norq throws on bad input. (Running out of memory, the one other
/// failure, is `std::bad_alloc`.)
///
/// The message is a stream: build the exception with its first words, append with `<<`, throw the
/// result. Numbers look the same whatever locale the host has made the global one.
///
///     throw Exception("unable to open file: ", true) << file_name;
///
/// The private member `dump_msg_and_raise_assertion` is the diagnostic hook, called once for each
/// exception made with the flag and never for a copy. The library's own does nothing; a host may
/// define this member itself, to print a stack trace or to stop in a debugger, and its definition
/// is then the one linked. `what()` tells it the first words of the message. It must not throw;
/// when it returns, the exception is thrown.
///
/// The class's symbols are visible even in a host that hides its own: a hook that the host defines
/// must be seen by a shared norq.
class [[gnu::visibility("default")]] Exception : public std::exception {
 public:
  /// Starts the message with `text`. If `raise` is true, calls `dump_msg_and_raise_assertion` as
  /// the last step, when the message is just `text`.
  Exception(const std::string& text, bool raise);

  /// Copies the message gathered so far into a stream of its own; does not call the hook again.
  Exception(const Exception& other);
  Exception& operator=(const Exception&) = delete;
  ~Exception() override;

  /// Appends `x` as an output stream prints it. Throws `std::bad_alloc` if there is no memory for
  /// it, and what an `operator<<` of T throws.
  template <class T>
  Exception& operator<<(const T& x) {
    msg << x;
    // The stream keeps to itself what its buffer threw.
    if (msg.bad()) throw std::bad_alloc();
    return *this;
  }

  /// The message so far, or "" if there is no memory to build it in. The pointer stays valid until
  /// the next call of `what` on this object or its destruction.
  const char* what() const noexcept override;

 private:
  /// The diagnostic hook.
  void dump_msg_and_raise_assertion();

  std::ostringstream msg;
  mutable std::string what_buf;
};

}  // namespace norq

#endif  // NORQ_UTILS_EXCEPTION_H
