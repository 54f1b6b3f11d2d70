#include "session.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "norq/utils/string_utils.h"

namespace norq {

void add_sample_options(const Parser& parser) {
  parser->add_option("verbose", OPT_BOOL, "");
  parser->add_option("count", OPT_INT, "");
  parser->add_option("out", OPT_STR, "");
  parser->add_option("dump", OPT_FLAG, "");
  parser->add_option("mode", OPT_ENUM, "");
  parser->add_enum_value("mode", "fast", 7, "");
}

std::string state_of(const Parser& parser) {
  std::string state, out;
  bool verbose;
  int number;
  if (parser->get_bool_option("verbose", &verbose))
    state += verbose ? "verbose=true " : "verbose=false ";
  if (parser->get_int_option("count", &number)) state += "count=" + std::to_string(number) + " ";
  if (parser->get_str_option("out", &out)) state += "out=" + out + " ";
  if (parser->get_flag_option("dump")) state += "dump ";
  if (parser->get_int_option("mode", &number)) state += "mode=" + std::to_string(number) + " ";
  return state;
}

std::string read(const Parser& parser, const std::string& key) {
  std::ostringstream out;
  out.precision(9);  // tells any two floats apart
  bool on;
  int code;
  float real;
  std::string text;
  if (parser->get_bool_option(key, &on)) out << "bool " << on << " ";
  if (parser->get_int_option(key, &code)) out << "int " << code << " ";
  if (parser->get_float_option(key, &real)) out << "float " << real << " ";
  if (parser->get_str_option(key, &text)) out << "str " << text << " ";
  const bool set = parser->get_flag_option(key);
  return out.str() + (set ? "set" : "not set");
}

std::string refusal_of(const std::function<void()>& call) {
  try {
    call();
  } catch (const OptionParser::error& caught) {
    const OptionParser::error error(caught);
    std::string end = ": " + error.name + ", value: " + error.value;
    if (!error.command_line.empty()) end += ", command-line: " + error.command_line;
    const std::string text = error.what();
    require(text == caught.what() && text.substr(text.find(':')) == end.c_str(), text);
    return text;
  } catch (const Exception& exception) {
    return exception.what();
  }
  return "";
}

std::string help_of(const Parser& parser, int order, int style, const std::string& heading) {
  struct : std::streambuf {
    std::streamsize xsputn(const char* bytes, std::streamsize count) override {
      text.append(bytes, static_cast<std::size_t>(count));
      return count;
    }
    int overflow(int byte) override { return text += static_cast<char>(byte), byte; }
    int sync() override { return ++flushes, 0; }
    std::string text;
    int flushes = 0;
  } buffer;
  buffer.text.reserve(1u << 16);  // the listing's own allocations are the ones to be starved
  std::ostream out(&buffer);
  parser->print_help(out, heading, OptionPrintOrder(order), OptionPrintStyle(style));
  require(buffer.flushes == 1, "a listing is flushed once");
  return buffer.text;
}

std::string parse_args(const Parser& parser, const Strings& arguments, int level) {
  std::vector<const char*> argv = {"-host"};
  for (const std::string& argument : arguments) argv.push_back(argument.c_str());
  Strings rest = {"kept: "};
  const auto argc = static_cast<int>(argv.size());
  parser->parse_args(0, nullptr, rest, level);
  std::string outcome = refusal_of([&] { parser->parse_args(argc, argv.data(), rest, level); });
  outcome = rest[0] + outcome + (outcome.empty() ? "" : "\n") + state_of(parser);
  for (std::size_t i = 1; i < rest.size(); ++i) outcome += "[" + rest[i] + "]";
  return outcome;
}

std::string parse_file(const Parser& parser, const std::string& bytes, int level) {
  const std::string path = "session-" + std::to_string(getpid()) + ".conf";
  std::ofstream(path, std::ios::binary) << bytes;
  std::string refusal = refusal_of([&] { parser->parse_config_file(path, level); });
  std::remove(path.c_str());
  const std::string where = " in config file: " + path;
  if (!refusal.empty()) refusal.replace(refusal.find(where), where.size(), "") += "\n";
  return refusal + state_of(parser);
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

int number(const std::string& word) {
  return static_cast<int>(std::strtol(word.c_str(), nullptr, 10) % 100000);
}

std::string show(const Parser& parser, const std::string& key) {
  const Option* const o = parser->get_option(key);
  OptionType type = OptionType(99);
  const bool known = parser->has_option(key, nullptr) && parser->has_option(key, &type);
  require(known == (o != nullptr) && known == (type != 99), key);
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

std::string keys_set(const Parser& parser) {
  hsh::HashSet<std::string> keys;
  keys.insert("z");
  parser->get_options_set(keys);
  std::string all;
  for (const std::string& key : std::set<std::string>(keys.begin(), keys.end())) all += key + " ";
  return all;
}

// A value for an option of this kind, whose record is then copied.
std::string convert(int type, const std::string& text) {
  const Parser parser(0);
  parser->add_option("o", OptionType(type), "");
  parser->add_enum_value("o", "slow", 5, "");
  if (!refusal_of([&] { parser->parse_option("o", text, 2); }).empty()) return "refused";
  Option copy;
  copy = *parser->get_option("o");
  *parser->get_option("o") = copy;
  return read(parser, "o");
}

std::string tokens_of(const std::string& text, const std::string& delimiters, int limit) {
  const Starvation starvation;
  const auto parts = static_cast<std::size_t>(limit);
  str::Tokenizer tokens = str::get_tokenizer(text, delimiters.c_str(), parts);
  using Words = str::Tokenizer::TokenizerImpl<str::IsSpace>;
  if (delimiters == "SPACE")
    tokens = str::Tokenizer(std::make_unique<Words>(text, str::IsSpace(), parts));
  std::string walked;
  str::TokenIterator it = tokens.begin();
  for (; it != tokens.end(); ++it) walked += *it + "@" + std::to_string(it.pos) + " ";
  require(++it == tokens.end(), "an iterator stays at its end");
  return walked;
}

// One argument, alike under each of these boolean styles.
std::string one_argument(const std::string& styles, const std::string& argument) {
  std::set<std::string> outcomes;
  for (const char style : styles) {
    const Parser parser(style - '0');
    add_sample_options(parser);
    outcomes.insert(parse_args(parser, {argument}, 0).substr(6));
  }
  return outcomes.size() == 1 ? *outcomes.begin() : "it depends on the style";
}

}  // namespace

std::string Session::run(const std::string& line) {
  str::Tokenizer tokens = str::get_tokenizer(line, " ", 0);
  words.assign(tokens.begin(), tokens.end());
  for (std::string& word : words) word = unescape(word);
  const Strings arguments(words.begin() + std::min<std::ptrdiff_t>(2, words.end() - words.begin()),
                          words.end());
  words.resize(std::max<std::size_t>(words.size(), 5));
  keys.insert(words[1]);
  const Strings& w = words;
  const Parser& p = parser;
  const std::string& command = w[0];
  const auto answer = [](bool yes) { return yes ? "true\n" : "false\n"; };

  if (command == "new" || command == "sample") {
    const int style = w[1] == "1" || w[1] == "2" ? number(w[1]) : 0;
    parser = Parser(style, !w[2].empty());
  }
  if (command == "sample") add_sample_options(p);
  if (command == "reset") p->reset();
  if (command == "group") p->set_cur_help_group(w[1]);
  if (command == "rename" && p->has_option(w[1], nullptr)) p->get_option(w[1])->name = w[2];
  if (command == "regroup" && p->has_option(w[1], nullptr))
    p->get_option(w[1])->group = number(w[2]);
  if (command == "add") return answer(p->add_option(w[1], OptionType(number(w[2])), w[3]));
  if (command == "add_named")
    return answer(p->add_option(w[1], w[2], OptionType(number(w[3])), w[4]));
  if (command == "value") return answer(p->add_enum_value(w[1], w[2], number(w[3]), w[4]));
  if (command == "del") return answer(p->del_option(w[1]));
  if (command == "describe") return answer(p->set_option_help(w[1], w[2]));
  if (command == "set")
    return refusal_of([&] { p->parse_option(w[1], w[2], number(w[3])); }) + "\n";
  if (command == "args") return parse_args(p, arguments, number(w[1])) + "\n";
  if (command == "file") return parse_file(p, w[2], number(w[1])) + "\n";
  if (command == "bytes") {
    const Parser sample(0);
    add_sample_options(sample);
    return parse_file(sample, w[1], 0) + "\n";
  }
  if (command == "help") return help_of(p, number(w[1]), number(w[2]), w[3]);
  if (command == "fill") {
    const Parser one(0);
    one->add_option(w[1], OPT_FLAG, w[2]);
    return help_of(one, PRINT_ORDER_NAME, PRINT_STYLE_ALIGNED);
  }
  if (command == "one") return one_argument(w[1], w[2]) + "\n";
  if (command == "convert") return convert(number(w[1]), w[2]) + "\n";
  if (command == "strip") {
    return str::strip<str::IsSpace>(w[1]) + "|" + str::lstrip<str::IsSpace>(w[1]) + "|" +
           str::rstrip<str::IsSpace>(w[1]) + "|\n";
  }
  if (command == "tokens") return tokens_of(w[1], w[2], number(w[3])) + "\n";
  if (command == "show") return show(p, w[1]) + "\n";
  if (command == "read") return read(p, w[1]) + "\n";
  if (command == "keys") return keys_set(p) + "\n";
  return "";
}

std::string Session::view() const {
  std::string all = help_of(parser, PRINT_ORDER_INDEX, PRINT_STYLE_TAB) + keys_set(parser);
  for (const std::string& key : keys) {
    if (parser->has_option(key, nullptr)) all += show(parser, key) + read(parser, key);
  }
  return all;
}

}  // namespace norq
