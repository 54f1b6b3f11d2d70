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
  Starvation(const Starvation&) = delete;
  Starvation& operator=(const Starvation&) = delete;
  ~Starvation() { active = false; }

  static inline bool active = false;
  static inline long left = -1;  // below 0 none fails
};

// A parser. Its members are called under starvation, up to the end of the full expression.
class Parser {
 public:
  explicit Parser(int style, bool pass_unknown = false)
      : parser(new OptionParser(OptionBoolStyle(style), pass_unknown)) {}

  struct Call : Starvation {
    explicit Call(OptionParser* called) : parser(called) {}
    OptionParser* operator->() const { return parser; }
    OptionParser* parser;
  };
  Call operator->() const { return Call(parser.get()); }

 private:
  std::unique_ptr<OptionParser> parser;
};

// One option of each kind that the sources treat apart, and what of them is set, in this order:
// "verbose=true count=3 out=x dump mode=7 ".
void add_sample_options(const Parser& parser);
std::string state_of(const Parser& parser);

// What each getter answers, such as "int 3 set".
std::string read(const Parser& parser, const std::string& key);

// The text of the exception that `call` throws, or "".
std::string refusal_of(const std::function<void()>& call);

std::string help_of(const Parser& parser, int order, int style, const std::string& heading = "");

// Each of the following returns a refusal, on a line of its own, and what is then set and remains.
std::string parse_args(const Parser& parser, const Strings& arguments, int level);
std::string parse_file(const Parser& parser, const std::string& bytes, int level);

// A parser that is driven by command lines, as in tests/sessions.
class Session {
 public:
  // Carries out a command and returns what it prints. What is no command does nothing.
  std::string run(const std::string& line);

  // What a host can see of the parser, for the keys that were mentioned.
  std::string view() const;

  Parser parser{0};
  Strings words = Strings(5);  // of the last command, at least so many
  std::set<std::string> keys;  // the second words of all commands
};

}  // namespace norq

#endif  // NORQ_TESTS_SESSION_H
