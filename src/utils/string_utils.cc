#include "norq/utils/string_utils.h"

namespace norq::str {

TokenizerBase::~TokenizerBase() = default;

Tokenizer get_tokenizer(const std::string& text, const char* delimiters, std::size_t max_splits) {
  return Tokenizer(std::make_unique<Tokenizer::TokenizerImpl<Tokenizer::IsDelim>>(
      text, Tokenizer::IsDelim(delimiters), max_splits));
}

}  // namespace norq::str
