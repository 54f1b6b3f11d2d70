#include "norq/utils/string_utils.h"

#include <gtest/gtest.h>

#include <vector>

namespace norq::str {

TEST(StringUtils, SpaceIsSixBytes) {
  std::string spaces;
  for (int byte = 0; byte < 256; ++byte) {
    if (IsSpace()(static_cast<char>(byte))) spaces += static_cast<char>(byte);
  }
  EXPECT_EQ(spaces, "\t\n\v\f\r ");
}

TEST(StringUtils, IteratorsFillVectorsAndHandlesMayBeEmpty) {
  const std::string text("a=\0=b", 5);
  const std::vector<std::string> expected = {"a", std::string(1, '\0'), "b"};
  Tokenizer parts = get_tokenizer(text, "=", 0), words = get_tokenizer(text, "=", 1), nothing;
  EXPECT_EQ(std::vector<std::string>(parts.begin(), parts.end()), expected);
  EXPECT_TRUE(nothing.begin() == nothing.end() && nothing.begin() == TokenIterator());
  EXPECT_TRUE(parts.end() != words.end());
  TokenIterator it = words.begin();
  EXPECT_EQ(*it++, "a");
  EXPECT_EQ(it->size(), 3u);
}

}  // namespace norq::str
