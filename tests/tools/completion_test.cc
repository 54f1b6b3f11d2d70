#include "norq/tools/completion.h"

#include <cstdlib>
#include <random>
#include <regex>
#include <sstream>

#include "../support.h"

namespace norq {

std::string script_of(const OptionParser& options, const std::string& program, int shell) {
  std::ostringstream out;
  write_completion(options, program, CompletionShell(shell), out);
  return out.str();
}

TEST(Completion, OffersTheWordsOfEachBoolStyle) {
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
    const std::string script = script_of(options, "@[`{/:Zz9", COMPLETION_BASH);
    std::string words;
    for (std::size_t i = 0; (i = script.find("\n    '", i)) != std::string::npos; ++i) {
      words += script.substr(i + 5, script.find('\'', i + 6) - i - 4) + " ";
    }
    EXPECT_EQ(words, expected);
    EXPECT_EQ(script_of(options, "@[`{/:Zz9", 3) + script_of(options, "p", -1), "");
  }
}

TEST(Completion, NothingEscapesItsQuotes) {
  std::mt19937 random(1);
  const auto random_text = [&random] {
    std::string text(1 + random() % 6, ' ');
    for (char& byte : text) byte = "'\\`$\"\n\x80"[random() % 7];
    return "`" + text + "`";  // no script has backquotes of its own
  };
  // Quoted text. Between single quotes, only fish lets a backslash escape a byte.
  const std::regex in_bash_and_zsh(R"(\\(.|\n)|'[^']*')");
  const std::regex in_fish(R"(\\(.|\n)|'(\\(.|\n)|[^'\\])*')");
  for (int round = 0; round < 300; ++round) {
    OptionParser options(BOOL_STYLE_VALUE, false);
    for (const OptionType type : {OPT_BOOL, OPT_ENUM, OPT_STR, OPT_FLAG}) {
      options.add_option(std::to_string(type), random_text(), type, random_text());
      options.add_enum_value(std::to_string(type), random_text(), 0, random_text());
    }
    for (const int shell : {COMPLETION_BASH, COMPLETION_ZSH, COMPLETION_FISH}) {
      const std::string script = script_of(options, random_text(), shell);
      const std::regex& quoted = shell == COMPLETION_FISH ? in_fish : in_bash_and_zsh;
      ASSERT_EQ(std::regex_replace(script, quoted, "").find('`'), std::string::npos) << script;
    }
  }
}

TEST(Completion, WorksInTheShells) {
  const std::string attack = "$(touch hit)`touch hit`';touch hit;'\"\\|&*:\xc3\xa4";
  OptionParser options(BOOL_STYLE_NO_PREFIX, false);
  options.add_option("fold", OPT_BOOL, attack + "\t\x7f.\nsecond line\n");
  options.add_option("key", "fold", OPT_INT, "behind the other fold in the table");
  options.add_option("mode", OPT_ENUM, "How");
  for (const std::string& name : Strings{"fast", attack, attack + "\n"}) {
    options.add_enum_value("mode", name, 0, attack);
  }
  options.add_option("max", OPT_UINT, "");
  for (const std::string& key : Strings{"mask", attack}) options.add_option(key, OPT_STR, "");
  setenv("bash_script", script_of(options, "cmd", COMPLETION_BASH).c_str(), 1);
  setenv("zsh_script", script_of(options, "cmd", COMPLETION_ZSH).c_str(), 1);
  setenv("fish_script", script_of(options, "cmd", COMPLETION_FISH).c_str(), 1);
  const int status = std::system("\"$(dirname '" __FILE__ "')\"/check_completion.sh");
  if (WIFEXITED(status) && WEXITSTATUS(status) == 77) GTEST_SKIP() << "zsh or fish is missing";
  EXPECT_EQ(status, 0);
}

}  // namespace norq
