#include "session.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "norq/utils/string_utils.h"

// What the hook saw last. It is not starved, as it must not throw.
static std::string announced;
void norq::Exception::dump_msg_and_raise_assertion() {
  const bool active = std::exchange(Starvation::active, false);
  announced = what();
  Starvation::active = active;
}

namespace norq {

int number(const std::string& word) {
  return static_cast<int>(std::strtol(word.c_str(), nullptr, 10) % 100000);
}

std::string read(const Parser& parser, const std::string& key) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out.precision(9);  // tells any two floats apart
  const auto append = [&](const char* type, auto getter, const auto before) {
    auto value = before;
    const bool answers = (Starvation(), (parser.get()->*getter)(key, &value));
    if (answers) out << type << " " << value << " ";
    require(answers || value == before, "a getter without an answer writes nothing");
  };
  append("bool", &OptionParser::get_bool_option, true);
  append("int", &OptionParser::get_int_option, 1);
  append("float", &OptionParser::get_float_option, 1.0F);
  append("str", &OptionParser::get_str_option, std::string("before"));
  const bool set = parser->get_flag_option(key);
  return out.str() + (set ? "set" : "not set");
}

std::string refusal_of(const std::function<void()>& call) {
  announced = "nothing";
  try {
    call();
  } catch (const OptionParser::error& caught) {
    const OptionParser::error error(caught);
    std::string end = ": " + error.name + ", value: " + error.value;
    if (!error.command_line.empty()) end += ", command-line: " + error.command_line;
    const std::string text = error.what();
    require(text == caught.what() && text == announced + end.c_str(), text);
    return text;
  } catch (const Exception& exception) {
    const std::string text = exception.what();
    require(text.rfind(announced, 0) == 0, "the hook sees " + announced);
    return text;
  }
  return "";
}

std::string help_of(const Parser& parser, int order, int style, const std::string& heading) {
  struct : std::stringbuf {
    int sync() override { return ++flushes, 0; }
    int flushes = 0;
  } buffer;
  buffer.str(std::string(1u << 13, ' '));  // so that only the listing itself allocates
  std::ostream out(&buffer);
  parser->print_help(out, heading, OptionPrintOrder(order), OptionPrintStyle(style));
  require(buffer.flushes == 1, "a listing is flushed once");
  return buffer.str().substr(0, static_cast<std::size_t>(out.tellp()));
}

// What is set, with its values. The set of keys that is filled holds one already.
std::string state_of(const Parser& parser) {
  hsh::HashSet<std::string> keys;
  keys.insert("text");
  try {
    parser->get_options_set(keys);
  } catch (const std::bad_alloc&) {
    require(keys.size() == 1, "a set that could not be filled is as before");
    throw;
  }
  require(keys.find("text") != keys.end(), "a set of keys keeps what it holds");
  if (!parser->get_flag_option("text")) keys.erase("text");
  std::string all;
  for (const std::string& key : std::set<std::string>(keys.begin(), keys.end()))
    all += key + " " + read(parser, key) + "; ";
  return all;
}

// The refusal that a source of settings meets, on a line of its own, and what is then set.
std::string outcome_of(const Parser& parser, const std::function<void()>& source) {
  const std::string refusal = refusal_of(source);
  return refusal + (refusal.empty() ? "" : "\n") + state_of(parser);
}

void parse_args(const Parser& parser, const Strings& arguments, Strings* rest, int level) {
  std::vector<const char*> argv;
  for (const std::string& argument : arguments) argv.push_back(argument.c_str());
  parser->parse_args(static_cast<int>(argv.size()), argv.data(), *rest, level);
}

std::string parse_file(const Parser& parser, const std::string& bytes, int level) {
  const std::string path = "session-" + std::to_string(getpid()) + ".conf";
  std::ofstream(path, std::ios::binary) << bytes;
  std::string outcome = outcome_of(parser, [&] { parser->parse_config_file(path, level); });
  std::remove(path.c_str());
  const std::string where = " in config file: " + path;
  if (outcome.rfind("invalid line ", 0) == 0) outcome.erase(outcome.find(where), where.size());
  return outcome;
}

namespace {

// \s is a space, \e an empty word, \w a word of 74 letters; the others are what they are in C.
std::string unescape(const std::string& word) {
  std::string text;
  for (std::size_t i = 0; i < word.size(); ++i) {
    const std::size_t escape = word[i] == '\\' ? std::string("ntrvf0s\\we").find(word[++i]) : 99;
    if (escape == 99) text += word[i];
    if (escape < 8) text += "\n\t\r\v\f\0 \\"[escape];
    if (escape == 8) text.append(74, 'w');
  }
  return text;
}

std::string show(const Parser& parser, const std::string& key) {
  const Option* const o = parser->get_option(key);
  OptionType type = OptionType(99);
  const bool known = parser->has_option(key, &type) && parser->has_option(key, nullptr);
  require(known == (o != nullptr) && type == (known ? o->type : OptionType(99)), key);
  const std::string& help = parser->get_option_help(key);
  if (o == nullptr) return "absent " + help;
  std::ostringstream out;
  out << o->name << " type " << type << " group " << o->group << " index " << o->index << " level "
      << o->level << " " << help;
  if (o->enum_values == nullptr) return out.str();
  for (const auto& [name, v] : *o->enum_values)
    out << "\n" << name << " " << v.first << " " << v.second;
  return out.str();
}

std::string tokens_of(const std::string& text, const std::string& delimiters, unsigned limit) {
  const Starvation starvation;
  str::Tokenizer tokens = str::get_tokenizer(text, delimiters.c_str(), limit);
  using Words = str::Tokenizer::TokenizerImpl<str::IsSpace>;
  if (delimiters == "SPACE")
    tokens = str::Tokenizer(std::make_unique<Words>(text, str::IsSpace(), limit));
  std::string walked, last;
  str::TokenIterator it = tokens.begin();
  for (; it != tokens.end(); walked += (last = *it++) + " ") walked += std::to_string(it.pos) + "@";
  require(++it == tokens.end() && *it == last, "an iterator stays at its end");
  str::Tokenizer empty;
  require(empty.begin() == empty.end() && it != empty.end(), "an empty handle has no tokens");
  return walked;
}

}  // namespace

std::string Session::run(const std::string& line) {
  str::Tokenizer tokens = str::get_tokenizer(line, " ", 0);
  words.assign(tokens.begin(), tokens.end());
  for (std::string& word : words) word = unescape(word);
  const Strings given = words;
  words.resize(std::max<std::size_t>(words.size(), 5));
  keys.insert(words[1]);
  const std::string &command = words[0], &key = words[1];
  const Strings& w = words;
  const Parser& p = parser;
  const auto answer = [](bool yes) { return yes ? "true\n" : "false\n"; };

  if (command == "new" || command == "sample") parser = Parser(number(key), !w[2].empty());
  if (command == "sample") {
    const Strings kept = words;
    for (const char* const add : {"add verbose 0", "add count 2", "add out 4", "add dump 5",
                                  "add mode 6", "value mode fast 7"})
      run(add);
    words = kept;
    return "";
  }
  if (command == "reset") p->reset();
  if (command == "group") p->set_cur_help_group(key);
  const std::set<std::string> of_records = {"rename", "regroup", "retype", "mark", "copy"};
  if (Option* const o = of_records.count(command) == 1 ? p->get_option(key) : nullptr) {
    if (command == "rename") o->name = w[2];
    if (command == "regroup") o->group = number(w[2]);
    if (command == "retype" && !o->is_set) o->type = OptionType(number(w[2]));
    if (command == "mark") o->is_set = true;
    if (command == "copy" && p->has_option(w[2], nullptr)) {
      Option copied;
      const Option& itself = copied;
      copied = *p->get_option(w[2]);
      copied = itself;
      *o = copied;
    }
  }
  if (command == "add") return answer(p->add_option(key, OptionType(number(w[2])), w[3]));
  if (command == "add_named")
    return answer(p->add_option(key, w[2], OptionType(number(w[3])), w[4]));
  if (command == "value") return answer(p->add_enum_value(key, w[2], number(w[3]), w[4]));
  if (command == "del") return answer(p->del_option(key));
  if (command == "describe") return answer(p->set_option_help(key, w[2]));
  if (command == "set") return refusal_of([&] { p->parse_option(key, w[2], number(w[3])); }) + "\n";
  if (command == "args") {
    Strings rest = {"kept: "};
    p->parse_args(0, nullptr, rest, 0);
    const Strings arguments(given.begin() + 1, given.end());  // the level for the program's name
    std::string printed = outcome_of(p, [&] { parse_args(p, arguments, &rest, number(key)); });
    for (std::size_t i = 1; i < rest.size(); ++i) printed += "[" + rest[i] + "]";
    return rest[0] + printed + "\n";
  }
  if (command == "file") return parse_file(p, w[2], number(key)) + "\n";
  if (command == "path")
    return outcome_of(p, [&] { p->parse_config_file(w[2], number(key)); }) + "\n";
  if (command == "help") return help_of(p, number(key), number(w[2]), w[3]);
  if (command == "strip") {
    const Starvation starvation;
    return str::strip<str::IsSpace>(key) + "|" + str::lstrip<str::IsSpace>(key) + "|" +
           str::rstrip<str::IsSpace>(key) + "|\n";
  }
  if (command == "tokens") return tokens_of(key, w[2], unsigned(number(w[3]))) + "\n";
  for (int i = number(key) % 1000; command == "fill" && i > 0; --i) table[std::to_string(i)];
  if (command == "table") {
    const std::pair<std::string, std::string> element(w[2], w[3]);
    const Starvation starvation;
    hsh::HashMap<std::string, std::string> other;
    if (key == "index") table[w[2]];
    if (key == "emplace") table.try_emplace(w[2], w[3]);
    if (key == "insert") table.insert(element);
    if (key == "node") std::destroy_at(other.new_Bucket(element));
    if (key == "rehash") table.rehash(unsigned(std::abs(number(w[2]))));
    if (key == "clear") table.clear(true);
    return std::to_string(table.size()) + " in " + std::to_string(table.bucket_count()) + "\n";
  }
  if (command == "show") return show(p, key) + "\n";
  if (command == "read") return read(p, key) + "\n";
  if (command == "keys") return state_of(p) + "\n";
  return "";
}

std::string Session::view() const {
  std::string all;
  for (const auto& [key, value] : table) all += key + " " + value + "\n";
  // An order that is none shows the options as they lie in the table.
  all += help_of(parser, -1, PRINT_STYLE_TAB) + state_of(parser);
  for (const std::string& key : keys) {
    if (parser->has_option(key, nullptr)) all += show(parser, key) + read(parser, key);
  }
  return all;
}

}  // namespace norq
