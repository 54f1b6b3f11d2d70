// Lines that each are a command of a session: calls of all members, in any order.

#include <map>

#include "../tests/session.h"
#include "fuzz.h"

namespace norq {

// An option's entry and help text as the plainest layout lists them.
std::string entry_of(const Option& option, int style) {
  const char* const bool_prefixes[] = {" -[no_]", " (+|-)", " -"};
  const std::map<int, const char*> tags = {
      {OPT_UINT, "=INT"},    {OPT_INT, "=INT"},
      {OPT_FLOAT, "=FLOAT"}, {OPT_STR, "=STR"},
      {OPT_ENUM, "=ENUM"},   {OPT_BOOL, style == BOOL_STYLE_VALUE ? "=BOOL" : ""}};
  const auto tag = tags.find(option.type);
  std::string help = option.help;
  if (option.type == OPT_ENUM && option.enum_values != nullptr) {
    help += "\nPossible values:";
    for (const auto& [name, v] : *option.enum_values) help += "\n- " + name + " : " + v.second;
  }
  return (option.type == OPT_BOOL ? bool_prefixes[style] : " -") + option.name +
         (tag == tags.end() ? "" : tag->second) + (help == "deprecated" ? "" : "\t" + help) + "\n";
}

void check(const Strings& lines) {
  Session session;
  std::set<std::string> present;
  int style = 0;
  for (const std::string& line : lines) {
    if (line.size() > 2000) continue;
    const std::string printed = session.run(line);
    const std::string command = session.words[0], key = session.words[1];
    if (command == "new" || command == "sample")
      style = key == "1" || key == "2" ? key[0] - '0' : 0;
    if (command == "new" || command == "sample" || command == "reset") present.clear();
    if (command == "sample") present = {"verbose", "count", "out", "dump", "mode"};
    if (command.rfind("add", 0) == 0)
      require((printed == "true\n") == (command.size() > 2 && present.insert(key).second), line);
    if (command == "del") require((printed == "true\n") == (present.erase(key) == 1), line);

    std::size_t length = 0;
    std::set<std::string> keys = session.keys;
    keys.insert(present.begin(), present.end());
    hsh::HashSet<std::string> set;
    session.parser->get_options_set(set);
    std::size_t set_count = 0;
    const std::string listing = help_of(session.parser, PRINT_ORDER_NAME, PRINT_STYLE_TAB);
    for (const std::string& known : keys) {
      const Option* const option = session.parser->get_option(known);
      require((option != nullptr) == (present.count(known) == 1), known + " after " + line);
      const bool is_set = session.parser->get_flag_option(known);
      require(is_set == (set.find(known) != set.end()), known + " after " + line);
      if (is_set) ++set_count;
      if (option == nullptr) continue;
      const std::string entry = entry_of(*option, style);
      require(listing.find(entry) != std::string::npos, entry);
      length += entry.size();
    }
    require(set.size() == set_count && listing.size() == length, listing);
  }
}

}  // namespace norq

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  norq::check(norq::lines_of(norq::text_of(
      data, size, {"\nadd ",     "\nadd_named ", "\nvalue ",  "\ndel ",    "\ndescribe ",
                   "\nset ",     "\nargs 0 ",    "\nfile 0 ", "\nhelp ",   "\ngroup ",
                   "\nregroup ", "\nrename ",    "\nreset\n", "\nsample ", "\nnew ",
                   "\nfill ",    "\nkeys\n",     "\nshow ",   "a",         "b",
                   " ",          " 0 ",          " 4 ",       " 6 ",       "=",
                   " -a=",       "\\w\\n"})));
  return 0;
}
