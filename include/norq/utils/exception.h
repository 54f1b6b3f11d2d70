#ifndef NORQ_UTILS_EXCEPTION_H
#define NORQ_UTILS_EXCEPTION_H

#include <exception>
#include <ostream>
#include <sstream>
#include <string>

namespace norq {

/// The base of everything that norq throws on bad input. (Its other failures are the standard
/// library's: `std::bad_alloc`, and `std::length_error` for a string or vector longer than its
/// `max_size()`, which only 32-bit programs can meet.)
///
/// The message is a stream: build the exception with its first words, append with `<<`, throw the
/// result. Numbers do not depend on the global locale.
///
///     throw Exception("unable to open file: ", true) << file_name;
///
/// The private member `dump_msg_and_raise_assertion` is the diagnostic hook, called once for each
/// exception made with the flag and never for a copy. norq's own hook does nothing. A host may
/// define this member itself, to print a stack trace or to stop in a debugger; its definition is
/// then the one linked. In the hook, `what()` returns the first words of the message. The hook must
/// not throw; when it returns, the exception is thrown.
///
/// The host's hook wins if it is in an object file of the program. If it is in a static archive,
/// norq's own may win: link the object file itself, or put the archive between
/// `-Wl,--whole-archive` and `-Wl,--no-whole-archive`. A shared norq linked with `-Bsymbolic` or
/// `-Bsymbolic-functions` always calls its own: link it with `-Wl,-Bno-symbolic` after them.
///
/// The class's symbols are visible even in a host that hides its own, so that a shared norq sees
/// the host's hook.
class [[gnu::visibility("default")]] Exception : public std::exception {
 public:
  /// Starts the message with `text`. If `raise` is true, calls `dump_msg_and_raise_assertion` as
  /// the last step, when the message is just `text`.
  Exception(const std::string& text, bool raise);

  /// Copies the message so far into a stream of its own; does not call the hook again.
  Exception(const Exception& other);
  Exception& operator=(const Exception&) = delete;
  ~Exception() override;

  /// Appends `x` as an output stream prints it. Throws, unchanged, what the stream's buffer throws
  /// (`std::bad_alloc`) and what the `operator<<` of T throws; a part of `x` may then be appended.
  /// If that operator only sets a state flag, as for a null `const char*`, nothing is thrown and
  /// the stream ignores what follows.
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

  /// Keeps what it throws, because streams swallow it.
  class Buffer : public std::stringbuf {
   public:
    std::exception_ptr thrown;

   protected:
    int_type overflow(int_type byte) override;
  };

  ///@{
  /// `start` forgets what the buffer threw; `rethrow` throws what it threw since then, if anything.
  void start() noexcept;
  void rethrow() const;
  ///@}

  Buffer buffer;
  std::ostream msg{&buffer};
  mutable std::string what_buf;
};

}  // namespace norq

#endif  // NORQ_UTILS_EXCEPTION_H
