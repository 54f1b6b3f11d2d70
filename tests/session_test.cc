// Plays the sessions in tests/sessions: lines that start with "> " are commands, the lines after
// each are what it prints, and "# " starts a comment.

#include "session.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>

namespace norq {

// Makes visible what an editor would not show.
std::string escape(std::string text) {
  for (const auto& [raw, shown] :
       {std::pair(" (?=\n)", "\\s"), {"\t", "\\t"}, {"\r", "\\r"}, {"\v", "\\v"}, {"\f", "\\f"}})
    text = std::regex_replace(text, std::regex(raw), shown);
  return text;
}

// Runs a command again and again, each time with one more allocation that succeeds, until none
// fails. What failed has changed nothing, or, of a source of settings, only what comes before.
std::string run_starved(Session& session, const std::string& command) {
  const std::set<std::string> sources_and_set_ups = {"args", "file", "new", "sample"};
  const bool of_several_steps =
      sources_and_set_ups.count(command.substr(0, command.find(' '))) != 0;
  const std::string before = session.view();
  for (long n = 0;; ++n) {
    std::string printed;
    bool failed = false;
    Starvation::left = n;
    try {
      printed = session.run(command);
      // As the reason why a line was refused, which may itself be lost.
      for (const char* reason : {"(std::bad_alloc)", "()"}) {
        failed = failed || printed.find(reason) != std::string::npos;
      }
    } catch (const std::bad_alloc&) {
      failed = true;
    }
    const bool gate_was_shut = Starvation::left < 0;
    Starvation::left = -1;
    EXPECT_EQ(failed, gate_was_shut) << command << ", allocation " << n;
    if (!gate_was_shut) return printed;
    EXPECT_EQ(of_several_steps ? before : session.view(), before)
        << command << ", allocation " << n;
  }
}

class Sessions : public testing::TestWithParam<const char*> {
 protected:
  template <class Run>
  void play(Run run) {
    std::ifstream file(NORQ_SESSIONS "/" + std::string(GetParam()) + ".txt");
    Session session;
    std::string shown, printed;
    for (std::string line; std::getline(file, line);) {
      if (line.rfind("# ", 0) == 0) continue;
      shown += line + "\n";
      if (line.rfind("> ", 0) == 0) printed += line + "\n" + escape(run(session, line.substr(2)));
    }
    EXPECT_NE(printed, "");
    EXPECT_EQ(printed, shown);
  }
};

TEST_P(Sessions, PrintWhatTheyShow) {
  play([](Session& session, const std::string& command) { return session.run(command); });
}

TEST_P(Sessions, GoOnAfterEveryFailedAllocation) {
  play(run_starved);
}

INSTANTIATE_TEST_SUITE_P(All, Sessions,
                         testing::Values("command_line", "config_file", "conversions", "help",
                                         "registry", "strings"),
                         [](const auto& session) { return session.param; });

}  // namespace norq
