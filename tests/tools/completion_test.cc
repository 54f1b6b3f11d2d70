#include "norq/tools/completion.h"

#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

#include "support.h"

namespace norq {
namespace {

std::string script_of(const OptionParser& options, const std::string& program,
                      CompletionShell shell) {
  std::ostringstream out;
  write_completion(options, program, shell, out);
  return out.str();
}

TEST(Completion, WordsOfEachBoolStyle) {
  const std::pair<OptionBoolStyle, const char*> rows[] = {
      {BOOL_STYLE_NO_PREFIX, "'-b'\n'-no_b'\n'-f'\n'-i='\n"},
      {BOOL_STYLE_PLUS_MINUS, "'+b'\n'-b'\n'+f'\n'+no_f'\n'+i='\n"},
      {BOOL_STYLE_VALUE, "'-f'\n'-no_f'\n'-b='\n'-i='\n'-b=true'\n'-b=false'\n"},
  };
  for (const auto& [style, expected] : rows) {
    OptionParser options(style, false);
    options.add_option("b", OPT_BOOL, "");
    options.add_option("f", OPT_FLAG, "");
    options.add_option("no_f", OPT_FLAG, "");
    options.add_option("i", OPT_INT, "");
    options.add_option("f=", OPT_STR, "");
    std::istringstream lines(script_of(options, "p", COMPLETION_BASH));
    std::string words;
    for (std::string line; std::getline(lines, line);) {
      if (line.substr(0, 5) == "    '") words += line.substr(4, line.rfind('\'') - 3) + "\n";
    }
    EXPECT_EQ(words, expected);
  }
}

// What a shell reads outside single quotes, and the backslashes between them, which fish reads.
std::string unquoted_part(const std::string& script) {
  std::string part;
  bool is_quoted = false;
  for (std::size_t i = 0; i < script.size(); ++i) {
    if (script[i] == '\'') {
      is_quoted = !is_quoted;
    } else if (!is_quoted && script[i] == '\\') {
      ++i;
    } else if (!is_quoted || script[i] == '\\') {
      part.push_back(script[i]);
    }
  }
  return part;
}

TEST(Completion, NothingEscapesItsQuotes) {
  std::mt19937 random(1);
  const auto random_text = [&random] {
    std::string text(1 + random() % 6, ' ');
    for (char& byte : text) byte = "'\\\"$`()<>|;&{}*!#~%:-\x80\xff"[random() % 23];
    return text;
  };
  for (int round = 0; round < 1000; ++round) {
    OptionParser hostile(BOOL_STYLE_VALUE, false);
    OptionParser harmless(BOOL_STYLE_VALUE, false);
    const std::string program = random_text();
    for (const OptionType type : {OPT_BOOL, OPT_ENUM, OPT_STR, OPT_FLAG}) {
      const std::string key = std::to_string(type);
      hostile.add_option(key, random_text() + key, type, random_text() + "\n'");
      hostile.add_enum_value(key, random_text(), 0, random_text() + "\n'");
      harmless.add_option(key, key, type, "");
      harmless.add_enum_value(key, key, 0, "");
    }
    for (const CompletionShell shell : {COMPLETION_BASH, COMPLETION_ZSH, COMPLETION_FISH}) {
      const std::string script = script_of(hostile, program, shell);
      EXPECT_EQ(unquoted_part(script),
                unquoted_part(script_of(harmless, std::string(program.size(), '.'), shell)))
          << script;
    }
  }
}

TEST(Completion, InTheShells) {
  const std::string attack = "$(touch hit)`touch hit`';touch hit;'\"\\|&*:\xc3\xa4";
  OptionParser options(BOOL_STYLE_NO_PREFIX, false);
  options.add_option("fold", OPT_BOOL, attack + "\t\x7f.\nsecond line\n");
  options.add_option("key", "fold", OPT_INT, "behind the other fold in the table");
  options.add_option("mode", OPT_ENUM, "How");
  for (const std::string& value : {std::string("fast"), attack, attack + "\n"}) {
    options.add_enum_value("mode", value, 0, attack);
  }
  options.add_option("max", OPT_UINT, "");
  for (const std::string& key : {std::string("mask"), attack}) options.add_option(key, OPT_STR, "");
  const std::string folder = testing::TempDir();
  std::ofstream(folder + "bash") << script_of(options, "host", COMPLETION_BASH);
  std::ofstream(folder + "zsh") << script_of(options, "host", COMPLETION_ZSH);
  std::ofstream(folder + "fish") << script_of(options, "host", COMPLETION_FISH);
  std::string checker = __FILE__;
  checker.replace(checker.rfind('/'), std::string::npos, "/check_completion.sh ");
  const int status = std::system((checker + folder).c_str());
  if (WIFEXITED(status) && WEXITSTATUS(status) == 77)
    GTEST_SKIP() << "bash, zsh or fish is missing";
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace norq
