#include "norq/utils/string_utils.h"

#include <gtest/gtest.h>

#include <vector>

namespace norq::str {

TEST(Strip, RemovesExactlySixBytesAtTheEnds) {
  const std::string text = " \t\n\v\f\r\b \x85 \xa0 \x0e\r\f\v\n\t ";
  EXPECT_EQ(lstrip<IsSpace>(text), "\b \x85 \xa0 \x0e\r\f\v\n\t ");
  EXPECT_EQ(rstrip<IsSpace>(text), " \t\n\v\f\r\b \x85 \xa0 \x0e");
  EXPECT_EQ(strip<IsSpace>(text), "\b \x85 \xa0 \x0e");
  EXPECT_EQ(lstrip<IsSpace>(" ") + rstrip<IsSpace>(" "), "");
}

TEST(Tokenizer, SplitsAtDelimitersUpToTheLimit) {
  using Tokens = std::vector<std::pair<std::size_t, std::string>>;  // with their positions
  const std::tuple<int, std::string, const char*, std::size_t, Tokens> rows[] = {
      {__LINE__, "=a==b", "=", 0, {{0, ""}, {1, "a"}, {3, ""}, {4, "b"}}},
      {__LINE__, "a,b=", "=,=", 0, {{0, "a"}, {2, "b"}, {4, ""}}},
      {__LINE__, "", "=", 1, {{0, ""}}},
      {__LINE__, "a=b=c=", "=", 2, {{0, "a"}, {2, "b"}, {4, "c="}}},
      {__LINE__, {"a \0b", 4}, "", 0, {{0, {"a \0b", 4}}}},
  };
  for (const auto& [line, text, delimiters, limit, expected] : rows) {
    const testing::ScopedTrace trace(__FILE__, line, text);
    Tokenizer tokenizer = get_tokenizer(text, std::string(delimiters).c_str(), limit);
    Tokens tokens;
    for (auto it = tokenizer.begin(); it != tokenizer.end(); ++it) tokens.emplace_back(it.pos, *it);
    EXPECT_EQ(tokens, expected);
  }
}

TEST(Tokenizer, IteratorsShareTheStateOfTheirTokenizerAndStayAtItsEnd) {
  const std::string text("a\0 b", 4);
  Tokenizer tokenizer(new Tokenizer::TokenizerImpl<IsSpace>(text, {}, 0));
  TokenIterator it = tokenizer.begin();
  const TokenIterator first = it;
  EXPECT_EQ(*it++, text.substr(0, 2));
  EXPECT_TRUE(++it == tokenizer.end() && ++it == tokenizer.end());
  EXPECT_EQ(*first, "b");
  EXPECT_TRUE(Tokenizer().begin() == Tokenizer().end() && Tokenizer().end() != it);
}

}  // namespace norq::str
