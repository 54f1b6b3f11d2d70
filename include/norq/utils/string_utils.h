#ifndef NORQ_UTILS_STRING_UTILS_H
#define NORQ_UTILS_STRING_UTILS_H

#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

/// Functions that strip strings and split them into tokens. A returned view refers to the bytes of
/// the argument and is valid as long as they are.
namespace norq::str {

/// norq's definition of white space.
struct IsSpace {
  /// True exactly for space, tab, line feed, vertical tab, form feed and carriage return, whatever
  /// the locale. Bytes from 0x80 up are never white space.
  constexpr bool operator()(char byte) const noexcept {
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
  }
};

/// The part of `text` that starts at the first byte for which `pred` is false.
template <class Pred>
std::string_view lstrip_view(std::string_view text, Pred pred) {
  std::size_t first = 0;
  while (first < text.size() && pred(text[first])) ++first;
  return text.substr(first);
}

/// The part of `text` that ends with the last byte for which `pred` is false.
template <class Pred>
std::string_view rstrip_view(std::string_view text, Pred pred) {
  std::size_t last = text.size();
  while (last > 0 && pred(text[last - 1])) --last;
  return text.substr(0, last);
}

/// `text` without the bytes for which `pred` is true at both ends.
template <class Pred>
std::string_view strip_view(std::string_view text, Pred pred) {
  return lstrip_view(rstrip_view(text, pred), pred);
}

///@{
/// Copies of what `lstrip_view`, `rstrip_view` and `strip_view` return:
/// `str::strip<str::IsSpace>(text)`.
template <class Pred>
std::string lstrip(const std::string& text, Pred pred = Pred()) {
  return std::string(lstrip_view(text, pred));
}
template <class Pred>
std::string rstrip(const std::string& text, Pred pred = Pred()) {
  return std::string(rstrip_view(text, pred));
}
template <class Pred>
std::string strip(const std::string& text, Pred pred = Pred()) {
  return std::string(strip_view(text, pred));
}
///@}

class TokenizerBase;

/// A single-pass input iterator over the tokens of a tokenizer. All iterators of one tokenizer
/// share its state: dereferencing any of them returns the current token, and incrementing any of
/// them moves to the next. Valid as long as the tokenizer.
class TokenIterator {
 public:
  ///@{
  /// For `std::iterator_traits`.
  using iterator_category = std::input_iterator_tag;
  using value_type = std::string;
  using difference_type = std::ptrdiff_t;
  using reference = const std::string&;
  using pointer = const std::string*;
  ///@}

  /// The result of a postfix increment: the token before the increment.
  class Previous {
   public:
    ///@{
    /// Stores the token and returns it.
    explicit Previous(std::string previous) : token(std::move(previous)) {}
    const std::string& operator*() const noexcept { return token; }
    ///@}

   private:
    std::string token;
  };

  TokenIterator() = default;

  /// For tokenizers: an iterator at the token that starts at `start`; npos means the end.
  TokenIterator(TokenizerBase* owner, std::size_t start) noexcept : tokenizer(owner), pos(start) {}

  ///@{
  /// As for every input iterator, except that an iterator at the end may be incremented and stays
  /// there. An iterator without a tokenizer may only be compared. Two iterators are equal if they
  /// have the same tokenizer and position.
  reference operator*() const;
  pointer operator->() const { return &**this; }
  TokenIterator& operator++();
  Previous operator++(int) {
    Previous token(**this);
    ++*this;
    return token;
  }

  friend bool operator==(const TokenIterator& a, const TokenIterator& b) noexcept {
    return a.tokenizer == b.tokenizer && a.pos == b.pos;
  }
  friend bool operator!=(const TokenIterator& a, const TokenIterator& b) noexcept {
    return !(a == b);
  }
  ///@}

  TokenizerBase* tokenizer = nullptr;   ///< not owned; null for an empty `Tokenizer`
  std::size_t pos = std::string::npos;  ///< where the token starts; npos at the end
};

/// The interface of tokenizers. Call `begin` exactly once, then dereference and increment the
/// iterator until it equals `end()`. The tokens cannot be visited again.
class TokenizerBase {
 public:
  TokenizerBase() = default;
  TokenizerBase(const TokenizerBase&) = delete;
  TokenizerBase& operator=(const TokenizerBase&) = delete;
  virtual ~TokenizerBase();

  /// Makes the first token current. Every text has at least one token, even the empty text.
  virtual TokenIterator begin() = 0;

  /// The iterator after the last token. Changes nothing.
  virtual TokenIterator end() = 0;

  /// Makes the next token current and returns the offset at which it starts. If there is none left,
  /// changes nothing and returns npos.
  virtual std::size_t next_pos() = 0;

  /// The current token, valid until the next one becomes current.
  virtual const std::string& cur_token() = 0;
};

/// Owns a tokenizer or is empty; if empty, it has no tokens. Can be moved but not copied; iterators
/// stay valid after a move.
class Tokenizer {
 public:
  class IsDelim;
  template <class Pred>
  class TokenizerImpl;

  Tokenizer() = default;

  ///@{
  /// Takes ownership of `tokenizer`, which must come from `new` or be null:
  /// `Tokenizer(new TokenizerImpl<P>(...))`.
  explicit Tokenizer(std::unique_ptr<TokenizerBase> tokenizer) noexcept
      : impl(std::move(tokenizer)) {}
  explicit Tokenizer(TokenizerBase* tokenizer) noexcept : impl(tokenizer) {}
  ///@}

  ///@{
  /// As in `TokenizerBase`. Both return the same iterator if there is no tokenizer.
  TokenIterator begin() { return impl == nullptr ? TokenIterator() : impl->begin(); }
  TokenIterator end() { return impl == nullptr ? TokenIterator() : impl->end(); }
  ///@}

 private:
  std::unique_ptr<TokenizerBase> impl;
};

/// A predicate that is true for the bytes of a delimiter string.
class Tokenizer::IsDelim {
 public:
  /// Copies `delimiters`, which must not be null. (So the NUL byte is never a delimiter.)
  explicit IsDelim(const char* delimiters) : delims(delimiters) {}

  /// Takes time proportional to the length of the delimiter string.
  bool operator()(char byte) const noexcept { return delims.find(byte) != std::string::npos; }

 private:
  std::string delims;
};

/// Splits a text at every byte for which `pred` is true. Such bytes are removed, and runs of them
/// are not merged: k of them make k + 1 tokens, some of which may be empty. The split limit is the
/// maximum number of splits; the rest of the text is then the last token. If a call throws, the
/// token stays current.
template <class Pred>
class Tokenizer::TokenizerImpl : public TokenizerBase {
 public:
  /// Keeps the address of `whole`, which must exist and stay unchanged as long as the tokenizer is
  /// used: a temporary exists only until the end of its full expression. A `limit` of 0 means no
  /// limit.
  TokenizerImpl(const std::string& whole, Pred is_separator, std::size_t limit)
      : text(&whole), pred(std::move(is_separator)), max_splits(limit) {}

  TokenIterator begin() override {
    advance();
    return TokenIterator(this, 0);
  }
  TokenIterator end() override { return TokenIterator(this, std::string::npos); }

  std::size_t next_pos() override {
    const std::size_t next = pos;
    if (next != std::string::npos) advance();
    return next;
  }

  const std::string& cur_token() override { return token; }

 private:
  /// Makes the token that starts at `pos` current.
  void advance() {
    const std::size_t start = pos < text->size() ? pos : text->size();
    std::size_t cut = start;
    if (max_splits == 0 || splits < max_splits) {
      while (cut < text->size() && !pred((*text)[cut])) ++cut;
    } else {
      cut = text->size();
    }
    token.assign(*text, start, cut - start);
    if (cut == text->size()) {
      pos = std::string::npos;
      return;
    }
    pos = cut + 1;
    ++splits;
  }

  const std::string* text;
  Pred pred;
  std::size_t max_splits;
  std::size_t splits = 0;
  std::string token;
  std::size_t pos = 0;
};

inline TokenIterator::reference TokenIterator::operator*() const {
  return tokenizer->cur_token();
}

inline TokenIterator& TokenIterator::operator++() {
  pos = tokenizer->next_pos();
  return *this;
}

/// Returns a tokenizer that splits `text` at each byte of `delimiters`, at most `max_splits` times
/// (0: no limit). Keeps the address of `text`, which must outlive the tokenizer: a temporary exists
/// only until the end of its full expression. Copies `delimiters`, which must not be null. Takes
/// time proportional to the length of the text times the number of delimiters.
///
///     str::Tokenizer parts = str::get_tokenizer(path, ":", 0);
///     std::vector<std::string> directories(parts.begin(), parts.end());
Tokenizer get_tokenizer(const std::string& text, const char* delimiters, std::size_t max_splits);

}  // namespace norq::str

#endif  // NORQ_UTILS_STRING_UTILS_H
