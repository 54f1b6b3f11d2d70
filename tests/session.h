#ifndef NORQ_TESTS_SESSION_H
#define NORQ_TESTS_SESSION_H

#include <functional>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "norq/options/option_parser.h"

namespace norq {

using Strings = std::vector<std::string>;

// What must hold wherever a session is played: in a test, or in a fuzz target without a framework.
inline void require(bool holds, const std::string& what) {
  if (!holds) throw std::logic_error("does not hold: " + what);
}

// While one lives, allocations are counted down, and the one after the last fails.
struct Starvation {
  Starvation() { active = true; }
  ~Starvation() { active = false; }

  static inline bool active = false;
  static inline long left = -1;  // below 0 none fails
};

// A parser. It is made, and its members are called, under starvation up to the end of the full
// expression.
struct Parser : std::shared_ptr<OptionParser> {
  explicit Parser(int style, bool pass_unknown = false)
      : shared_ptr((Starvation(), new OptionParser(OptionBoolStyle(style), pass_unknown))) {}

  struct Call : Starvation {
    OptionParser* operator->() const { return parser; }
    OptionParser* parser;
  };
  Call operator->() const { return {{}, get()}; }
};

// The number at the start of a word, cut to five digits.
int number(const std::string& word);

// What each getter answers, such as "int 3 set".
std::string read(const Parser& parser, const std::string& key);

// The text of the exception that `call` throws, or "".
std::string refusal_of(const std::function<void()>& call);

// Calls parse_args with these arguments, of which the first stands for the program's name.
void parse_args(const Parser& parser, const Strings& arguments, Strings* rest, int level);

// What a file with these bytes leads to: its refusal, less the file's name, on a line of its own,
// and what is then set.
std::string parse_file(const Parser& parser, const std::string& bytes, int level);

std::string help_of(const Parser& parser, int order, int style, const std::string& heading = "");

// A parser, and a table, that are driven by command lines, as in tests/sessions.
struct Session {
  // Carries out a command and returns what it prints. What is no command does nothing.
  std::string run(const std::string& line);

  // What a user can see of the parser, for the keys that were mentioned, and of the table.
  std::string view() const;

  Parser parser{0};
  hsh::HashMap<std::string, std::string> table;
  Strings words = Strings(5);  // of the last command, at least so many
  std::set<std::string> keys;  // the second words of all commands
};

}  // namespace norq

#endif  // NORQ_TESTS_SESSION_H
