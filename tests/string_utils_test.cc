#include "norq/utils/string_utils.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace norq {
namespace str {
namespace {

TEST(StringUtils, SpaceIsSixBytes) {
  std::string spaces;
  for (int byte = 0; byte < 256; ++byte) {
    if (IsSpace()(static_cast<char>(byte))) spaces += static_cast<char>(byte);
  }
  EXPECT_EQ(spaces, "\t\n\v\f\r ");
}

TEST(StringUtils, StripLeavesTheInside) {
  const struct {
    std::string text, stripped, left, right;
  } cases[] = {
      {"\t a b \r\n", "a b", "a b \r\n", "\t a b"},
      {"", "", "", ""},
      {" \t\v\f\r\n", "", "", ""},
      {"a", "a", "a", "a"},
      {"\xa0 a\x85", "\xa0 a\x85", "\xa0 a\x85", "\xa0 a\x85"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(strip<IsSpace>(c.text), c.stripped) << c.text;
    EXPECT_EQ(lstrip(c.text, IsSpace()), c.left) << c.text;
    EXPECT_EQ(rstrip(c.text, IsSpace()), c.right) << c.text;
  }
}

// Walks all tokens and, by the end iterators that equal it, the position of each.
void expect_tokens(TokenizerBase& tokenizer, const std::vector<std::string>& tokens,
                   const std::vector<std::size_t>& positions, const std::string& what) {
  std::size_t i = 0;
  TokenIterator it = tokenizer.begin();
  for (; it != tokenizer.end(); ++it, ++i) {
    ASSERT_LT(i, tokens.size()) << what;
    EXPECT_EQ(*it, tokens[i]) << what;
    EXPECT_EQ(it->size(), tokens[i].size()) << what;
    EXPECT_EQ(it, TokenIterator(&tokenizer, positions[i])) << what;
  }
  EXPECT_EQ(i, tokens.size()) << what;
  EXPECT_EQ(++it, tokenizer.end()) << what;
}

TEST(StringUtils, TokensAreTheStretchesBetweenSeparators) {
  const struct {
    std::string text;
    const char* delimiters;  // null: white space
    std::size_t limit;
    std::vector<std::string> tokens;
    std::vector<std::size_t> positions;
  } cases[] = {
      {"a=b", "=", 0, {"a", "b"}, {0, 2}},
      {"a==b", "=", 0, {"a", "", "b"}, {0, 2, 3}},
      {"=a", "=", 0, {"", "a"}, {0, 1}},
      {"a=", "=", 0, {"a", ""}, {0, 2}},
      {"=", "=", 0, {"", ""}, {0, 1}},
      {"abc", "=", 0, {"abc"}, {0}},
      {"", "=", 0, {""}, {0}},
      {"", "=", 1, {""}, {0}},
      {"", nullptr, 0, {""}, {0}},
      {"a=b=c", "=", 1, {"a", "b=c"}, {0, 2}},
      {"a=b=c=d", "=", 2, {"a", "b", "c=d"}, {0, 2, 4}},
      {"a=", "=", 1, {"a", ""}, {0, 2}},
      {"a b", nullptr, 0, {"a", "b"}, {0, 2}},
      {"a  b", nullptr, 0, {"a", "", "b"}, {0, 2, 3}},
      {" a ", nullptr, 0, {"", "a", ""}, {0, 1, 3}},
      {"a=b", "", 0, {"a=b"}, {0}},
      {"a=b,c", ",=,", 0, {"a", "b", "c"}, {0, 2, 4}},
      {std::string("a\0b", 3), "=", 0, {std::string("a\0b", 3)}, {0}},
  };
  for (const auto& c : cases) {
    if (c.delimiters == nullptr) {
      Tokenizer::TokenizerImpl<IsSpace> tokenizer(c.text, IsSpace(), c.limit);
      expect_tokens(tokenizer, c.tokens, c.positions, c.text);
    } else {
      Tokenizer::TokenizerImpl<Tokenizer::IsDelim> tokenizer(
          c.text, Tokenizer::IsDelim(c.delimiters), c.limit);
      expect_tokens(tokenizer, c.tokens, c.positions, c.text);
      Tokenizer handle = get_tokenizer(c.text, c.delimiters, c.limit);
      Tokenizer moved = std::move(handle);
      EXPECT_EQ(std::vector<std::string>(moved.begin(), moved.end()), c.tokens) << c.text;
    }
  }
}

TEST(StringUtils, AHandleWithoutATokenizerIsEmpty) {
  Tokenizer nothing;
  EXPECT_TRUE(nothing.begin() == nothing.end());
  EXPECT_TRUE(nothing.begin() == TokenIterator());
}

TEST(StringUtils, PostfixIncrementYieldsTheTokenBefore) {
  const std::string text = "a b";
  Tokenizer tokens(
      std::make_unique<Tokenizer::TokenizerImpl<IsSpace>>(text, IsSpace(), std::size_t{0}));
  TokenIterator it = tokens.begin();
  EXPECT_EQ(*it++, "a");
  EXPECT_EQ(*it, "b");
}

}  // namespace
}  // namespace str
}  // namespace norq
