#ifndef NORQ_FUZZ_FUZZ_H
#define NORQ_FUZZ_FUZZ_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace norq {

// An input as a text: every control byte that is no white space stands for one of the target's
// pieces. So any text file is an input as it is, and random bytes make something near the grammar.
inline std::string text_of(const std::uint8_t* data, std::size_t size,
                           const std::vector<std::string_view>& pieces) {
  std::string text;
  for (std::size_t i = 0; i < size; ++i) {
    const bool is_piece = data[i] < 32 && (data[i] < '\t' || data[i] > '\r');
    if (is_piece) text += pieces[data[i] % pieces.size()];
    if (!is_piece) text += static_cast<char>(data[i]);
  }
  return text;
}

// The lines of a text; a last one without a line feed counts unless it is empty.
inline std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::string line;
  for (const char byte : text) {
    if (byte != '\n') line += byte;
    if (byte == '\n') lines.push_back(std::move(line)), line.clear();
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

}  // namespace norq

#endif  // NORQ_FUZZ_FUZZ_H
