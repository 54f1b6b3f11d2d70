// Lines that each are a command of a session: calls of all members, in any order.

#include "fuzz.h"

namespace norq {

// How a parser with a copy of this record alone lists it.
static std::string entry_of(const Option& option, int style) {
  const Parser parser(style);
  parser->add_option("", OPT_FLAG, "");
  *parser->get_option("") = option;
  return help_of(parser, PRINT_ORDER_NAME, PRINT_STYLE_TAB);
}

void check(const std::string& input) {
  std::istringstream lines(input);
  Session session;
  int style = 0;
  std::set<std::string> present;
  for (std::string line; std::getline(lines, line);) {
    const bool done = session.run(line) == "true\n";
    const std::string &command = session.words[0], &key = session.words[1];
    const bool anew = command == "new" || command == "sample";
    if (anew) style = number(key);
    if (anew || command == "reset") present.clear();
    if (command == "sample") present = {"verbose", "count", "out", "dump", "mode"};
    if (command == "add" || command == "add_named")
      require(done == present.insert(key).second, line);
    if (command == "del") require(done == (present.erase(key) == 1), line);

    hsh::HashSet<std::string> set;
    session.parser->get_options_set(set);
    std::size_t length = 0;
    const int order = line.size() % 4;  // one without headings
    const std::string listing = help_of(session.parser, order, PRINT_STYLE_TAB);
    for (const std::string& known : session.keys) {
      const Option* const option = session.parser->get_option(known);
      require((option != nullptr) == (present.count(known) == 1), known + " after " + line);
      require(session.parser->get_flag_option(known) == set.erase(known), known + " after " + line);
      const std::string entry = option == nullptr ? "" : entry_of(*option, style);
      require(listing.find(entry) != std::string::npos, entry);
      length += entry.size();
    }
    require(set.size() == 0 && listing.size() == length, listing);
  }
}

}  // namespace norq
