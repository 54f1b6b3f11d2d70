#ifndef NORQ_UTILS_EXCEPTION_H
#define NORQ_UTILS_EXCEPTION_H

#include <exception>
#include <ostream>
#include <sstream>
#include <string>

namespace norq {

/// The base class of all exceptions that norq throws for bad input. (Other failures throw
/// exceptions of the standard library: `std::bad_alloc`, and `std::length_error` for a string or
/// vector longer than its `max_size()`, which can only happen in 32-bit programs.)
///
/// The message is a stream: construct the exception with the first words, append with `<<`, throw
/// the result. The format of numbers does not depend on the global locale.
///
///     throw Exception("unable to open file: ", true) << file_name;
///
/// The private member `dump_msg_and_raise_assertion` is the diagnostic hook, called once for each
/// exception constructed with `raise` set, and never for a copy. norq's own hook does nothing. A
/// program may define this member itself, for example to print a stack trace or to stop in a
/// debugger; the linker then uses that definition. In the hook, `what()` returns the first words of
/// the message. The hook must not throw; when it returns, the exception is thrown.
///
/// The program's hook is always used if it is in an object file of the program. If it is in a
/// static archive, norq's own may be used instead: link the object file itself, or put the archive
/// between `-Wl,--whole-archive` and `-Wl,--no-whole-archive`. A shared norq linked with
/// `-Bsymbolic` or `-Bsymbolic-functions` always calls its own: link it with `-Wl,-Bno-symbolic`
/// after them.
///
/// The symbols of this class are visible even in a program built with hidden visibility, so that a
/// shared norq finds the program's hook.
class [[gnu::visibility("default")]] Exception : public std::exception {
 public:
  /// Starts the message with `text`. If `raise` is true, calls `dump_msg_and_raise_assertion` as
  /// the last step; the message is then just `text`.
  Exception(const std::string& text, bool raise);

  /// Copies the message so far into a new stream; does not call the hook again.
  Exception(const Exception& other);
  Exception& operator=(const Exception&) = delete;
  ~Exception() override;

  /// Appends `x` as an output stream prints it. Propagates exceptions of the stream's buffer
  /// (`std::bad_alloc`) and of the `operator<<` of T; part of `x` may then have been appended. If
  /// that operator only sets a state flag, as for a null `const char*`, nothing is thrown and the
  /// stream ignores what follows.
  template <class T>
  Exception& operator<<(const T& x) {
    start();
    msg << x;
    rethrow();
    return *this;
  }

  /// The message so far, or "" if it cannot be built (out of memory). The pointer stays valid until
  /// the next call of `what` on this object or its destruction.
  const char* what() const noexcept override;

 private:
  /// The diagnostic hook.
  void dump_msg_and_raise_assertion();

  /// Stores the exception that it throws, because streams swallow it.
  class Buffer : public std::stringbuf {
   public:
    std::exception_ptr thrown;

   protected:
    int_type overflow(int_type byte) override;
  };

  ///@{
  /// `start` clears the buffer's stored exception; `rethrow` throws the stored exception, if any.
  void start() noexcept;
  void rethrow() const;
  ///@}

  Buffer buffer;
  std::ostream msg{&buffer};
  mutable std::string what_buf;
};

}  // namespace norq

#endif  // NORQ_UTILS_EXCEPTION_H
