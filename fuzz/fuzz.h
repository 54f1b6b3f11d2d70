#ifndef NORQ_FUZZ_FUZZ_H
#define NORQ_FUZZ_FUZZ_H

#include <cstddef>
#include <cstdint>

#include "../tests/session.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace norq {

// An input as a text: every control byte that is no white space stands for one of the target's
// pieces. So any text file is an input as it is, and random bytes make something near the grammar.
inline std::string text_of(const std::uint8_t* data, std::size_t size, const Strings& pieces) {
  std::string text;
  for (; size-- > 0; ++data) {
    const bool is_piece = *data < '\t' || (*data > '\r' && *data < ' ');
    text += is_piece ? pieces[*data % pieces.size()] : std::string(1, static_cast<char>(*data));
  }
  return text;
}

// The lines of a text; a last one without a line feed counts unless it is empty.
inline Strings lines_of(const std::string& text) {
  Strings lines;
  for (std::size_t start = 0; start < text.size();) {
    lines.push_back(text.substr(start, text.find('\n', start) - start));
    start += lines.back().size() + 1;
  }
  return lines;
}

}  // namespace norq

#endif  // NORQ_FUZZ_FUZZ_H
