#include "norq/tools/completion.h"

#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

#include "../support.h"

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
      {BOOL_STYLE_NO_PREFIX, "'-b' '-no_b' '-f' '-i=' "},
      {BOOL_STYLE_PLUS_MINUS, "'+b' '-b' '+f' '+no_f' '+i=' "},
      {BOOL_STYLE_VALUE, "'-f' '-no_f' '-b=' '-i=' '-b=true' '-b=false' "},
  };
  for (const auto& [style, expected] : rows) {
    OptionParser options(style, false);
    options.add_option("b", OPT_BOOL, "");
    for (const char* const key : {"f", "no_f", "f="}) options.add_option(key, OPT_FLAG, "");
    options.add_option("i", OPT_INT, "");
    const std::string script = script_of(options, "p", COMPLETION_BASH);
    std::string words;
    for (std::size_t i = 0; (i = script.find("\n    '", i)) != std::string::npos; ++i) {
      words += script.substr(i + 5, script.find('\'', i + 6) - i - 4) + " ";
    }
    EXPECT_EQ(words, expected);
  }
}

// What a shell reads outside single quotes. In them, only fish lets a backslash escape.
std::string unquoted_part(const std::string& script, CompletionShell shell) {
  std::string part;
  bool is_quoted = false;
  for (std::size_t i = 0; i < script.size(); ++i) {
    if (script[i] == '\\' && (!is_quoted || shell == COMPLETION_FISH)) {
      ++i;
    } else if (script[i] == '\'') {
      is_quoted = !is_quoted;
    } else if (!is_quoted) {
      part.push_back(script[i]);
    }
  }
  return part;
}

TEST(Completion, NothingEscapesItsQuotes) {
  std::mt19937 random(1);
  const auto random_text = [&random] {
    std::string text(1 + random() % 6, ' ');
    for (char& byte : text) byte = "'\\`$\"\n\x80"[random() % 7];
    return "`" + text + "`";  // no script has backquotes of its own
  };
  for (int round = 0; round < 1000; ++round) {
    OptionParser options(BOOL_STYLE_VALUE, false);
    for (const OptionType type : {OPT_BOOL, OPT_ENUM, OPT_STR, OPT_FLAG}) {
      options.add_option(std::to_string(type), random_text(), type, random_text());
      options.add_enum_value(std::to_string(type), random_text(), 0, random_text());
    }
    for (const CompletionShell shell : {COMPLETION_BASH, COMPLETION_ZSH, COMPLETION_FISH}) {
      const std::string script = script_of(options, random_text(), shell);
      ASSERT_EQ(unquoted_part(script, shell).find('`'), std::string::npos) << script;
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
  const std::string scripts = testing::TempDir() + "completion_test.";
  std::ofstream(scripts + "bash") << script_of(options, "host", COMPLETION_BASH);
  std::ofstream(scripts + "zsh") << script_of(options, "host", COMPLETION_ZSH);
  std::ofstream(scripts + "fish") << script_of(options, "host", COMPLETION_FISH);
  std::string checker = __FILE__;
  checker.replace(checker.rfind('/'), std::string::npos, "/check_completion.sh ");
  const int status = std::system((checker + scripts).c_str());
  if (WIFEXITED(status) && WEXITSTATUS(status) == 77)
    GTEST_SKIP() << "bash, zsh or fish is missing";
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace norq
