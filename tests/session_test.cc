// Runs the sessions in tests/sessions: lines that start with "> " are commands, the lines after
// each are what it prints, and "# " starts a comment. In a command, \s is a space, \e an empty word
// and \w a word of 74 letters; in all lines \n, \t, \r, \v, \f, \0 and \\ are what they are in C.

#include <cstdio>
#include <memory>
#include <set>

#include "options/handle_option.h"
#include "testing.h"

namespace norq {

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

// Makes visible what an editor would not show.
std::string escape(const std::string& text) {
  std::string shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool ends_line = text[i] == ' ' && (i + 1 == text.size() || text[i + 1] == '\n');
    const std::size_t control = std::string("\t\r\v\f").find(text[i]);
    if (control != std::string::npos) shown += {'\\', "trvf"[control]};
    if (control == std::string::npos) shown += ends_line ? "\\s" : std::string(1, text[i]);
  }
  return shown;
}

int number(const std::string& word) {
  return std::stoi(word);
}
std::string answer(bool yes) {
  return yes ? "true" : "false";
}

// Each of the following returns a refusal, on a line of its own, and what is then set and remains.

std::string parse_args(OptionParser& parser, const Strings& arguments, int level) {
  std::vector<const char*> argv = {"-host"};
  for (const std::string& argument : arguments) argv.push_back(argument.c_str());
  Strings rest = {"kept: "};
  const auto argc = static_cast<int>(argv.size());
  parser.parse_args(0, nullptr, rest, level);
  std::string outcome = refusal_of([&] { parser.parse_args(argc, argv.data(), rest, level); });
  outcome = rest[0] + outcome + (outcome.empty() ? "" : "\n") + state_of(parser);
  for (std::size_t i = 1; i < rest.size(); ++i) outcome += "[" + rest[i] + "]";
  return outcome;
}

std::string parse_file(OptionParser& parser, const std::string& bytes, int level) {
  const std::string path = "session_test.conf", where = " in config file: " + path;
  std::ofstream(path, std::ios::binary) << bytes;
  std::string refusal = refusal_of([&] {
    try {
      parser.parse_config_file(path, level);
    } catch (const OptionParser::error&) {
      ADD_FAILURE() << "a file's refusal is not an error of a setting";
    }
  });
  std::remove(path.c_str());
  if (!refusal.empty()) refusal.replace(refusal.find(where), where.size(), "") += "\n";
  return refusal + state_of(parser);
}

// What each getter answers.
std::string read(const OptionParser& parser, const std::string& key) {
  std::ostringstream out;
  bool on;
  int code;
  float real;
  std::string text;
  if (parser.get_bool_option(key, &on)) out << "bool " << on << " ";
  if (parser.get_int_option(key, &code)) out << "int " << code << " ";
  if (parser.get_float_option(key, &real)) out << "float " << real << " ";
  if (parser.get_str_option(key, &text)) out << "str " << text << " ";
  out << (parser.get_flag_option(key) ? "set" : "not set");
  return out.str();
}

std::string show(OptionParser& parser, const std::string& key) {
  const Option* const o = parser.get_option(key);
  OptionType type = OptionType(99);
  const bool known = parser.has_option(key, nullptr) && parser.has_option(key, &type);
  EXPECT_TRUE(known == (o != nullptr) && known == (type != 99)) << key;
  if (o == nullptr) return "absent " + parser.get_option_help(key);
  std::ostringstream out;
  out << o->name << " type " << type << " group " << o->group << " index " << o->index << " level "
      << o->level << " " << parser.get_option_help(key);
  if (o->enum_values == nullptr) return out.str();
  for (const auto& [name, v] : *o->enum_values)
    out << "\n" << name << " " << v.first << " " << v.second;
  return out.str();
}

std::string keys_set(const OptionParser& parser) {
  hsh::HashSet<std::string> keys;
  keys.insert("z");
  parser.get_options_set(keys);
  std::string all;
  for (const std::string& key : std::set<std::string>(keys.begin(), keys.end())) all += key + " ";
  return all;
}

std::string convert(int type, const std::string& text) {
  Option option("o", OptionType(type), "", 0, 1);
  if (option.type == OPT_ENUM) option.enum_values.reset(new Option::EnumValues{{"slow", {5, ""}}});
  const bool accepted = handle_option(option, text, 2);
  EXPECT_TRUE(option.is_set == accepted && option.level == (accepted ? 2 : 0)) << text;
  std::ostringstream value;
  if (!accepted) return "refused";
  if (option.type == OPT_BOOL) return answer(option.value.bool_value);
  if (option.type == OPT_STR) return option.value.str_value;
  if (option.type == OPT_FLOAT) return value << option.value.float_value, value.str();
  return std::to_string(option.value.int_value);
}

std::string tokens_of(const std::string& text, const std::string& delimiters, std::size_t limit) {
  str::Tokenizer tokens = str::get_tokenizer(text, delimiters.c_str(), limit);
  using Words = str::Tokenizer::TokenizerImpl<str::IsSpace>;
  if (delimiters == "SPACE")
    tokens = str::Tokenizer(std::make_unique<Words>(text, str::IsSpace(), limit));
  std::string walked;
  str::TokenIterator it = tokens.begin();
  for (; it != tokens.end(); ++it) walked += *it + "@" + std::to_string(it.pos) + " ";
  EXPECT_EQ(++it, tokens.end());
  return walked;
}

using Parser = std::unique_ptr<OptionParser>;

Parser make(const std::string& style, bool pass_unknown) {
  auto parser = std::make_unique<OptionParser>(OptionBoolStyle(number(style)), pass_unknown);
  add_sample_options(*parser);
  return parser;
}

// One argument under each of these boolean styles, unknown names refused and passed on.
std::string one_argument(const std::string& styles, const std::string& argument) {
  std::set<std::string> outcomes;
  for (const char style : styles) {
    const std::string outcome = parse_args(*make({style}, false), {argument}, 0);
    const bool unknown = outcome.find("unknown option") != std::string::npos;
    EXPECT_EQ(parse_args(*make({style}, true), {argument}, 0),
              unknown ? "kept: [" + argument + "]" : outcome);
    outcomes.insert(outcome.substr(6));
  }
  return outcomes.size() == 1 ? *outcomes.begin() : "it depends on the style";
}

// What a command returns is printed with a line feed behind it, if it is one that answers.
std::string run(Parser& p, const Strings& w) {
  const std::string& command = w[0];
  if (command == "new" || command == "sample") p = make(w[1], w.size() > 2);
  if (command == "new" || command == "reset") p->reset();
  if (command == "group") p->set_cur_help_group(w[1]);
  if (command == "rename") p->get_option(w[1])->name = w[2];
  if (command == "regroup") p->get_option(w[1])->group = number(w[2]);
  if (command == "help") return help_of(*p, number(w[1]), number(w[2]), w.size() > 3 ? w[3] : "");
  if (command == "fill") {
    p->reset();
    p->add_option(w[1], OPT_FLAG, w[2]);
    return help_of(*p, PRINT_ORDER_NAME, PRINT_STYLE_ALIGNED);
  }
  const auto answer_of = [&]() -> std::string {
    if (command == "add") return answer(p->add_option(w[1], OptionType(number(w[2])), w[3]));
    if (command == "add_named")
      return answer(p->add_option(w[1], w[2], OptionType(number(w[3])), w[4]));
    if (command == "value") return answer(p->add_enum_value(w[1], w[2], number(w[3]), w[4]));
    if (command == "del") return answer(p->del_option(w[1]));
    if (command == "describe") return answer(p->set_option_help(w[1], w[2]));
    if (command == "set") return refusal_of([&] { p->parse_option(w[1], w[2], number(w[3])); });
    if (command == "args") return parse_args(*p, Strings(w.begin() + 2, w.end()), number(w[1]));
    if (command == "file") return parse_file(*p, w[2], number(w[1]));
    if (command == "bytes") return parse_file(*make("0", false), w[1], 0);
    if (command == "one") return one_argument(w[1], w[2]);
    if (command == "convert") return convert(number(w[1]), w[2]);
    if (command == "strip") {
      return str::strip<str::IsSpace>(w[1]) + "|" + str::lstrip<str::IsSpace>(w[1]) + "|" +
             str::rstrip<str::IsSpace>(w[1]) + "|";
    }
    if (command == "tokens") return tokens_of(w[1], w[2], std::stoul(w[3]));
    if (command == "show") return show(*p, w[1]);
    if (command == "read") return read(*p, w[1]);
    if (command == "keys") return keys_set(*p);
    return "silent";
  };
  const std::string answered = answer_of();
  return answered == "silent" ? "" : answered + "\n";
}

class Sessions : public testing::TestWithParam<const char*> {};

TEST_P(Sessions, PrintWhatTheyShow) {
  std::ifstream file(NORQ_SESSIONS "/" + std::string(GetParam()) + ".txt");
  Parser parser;
  std::string shown, printed;
  for (std::string line; std::getline(file, line);) {
    if (line.rfind("# ", 0) == 0) continue;
    shown += line + "\n";
    if (line.rfind("> ", 0) != 0) continue;
    str::Tokenizer tokens = str::get_tokenizer(line, " ", 0);
    Strings words(++tokens.begin(), tokens.end());
    for (std::string& word : words) word = unescape(word);
    printed += line + "\n" + escape(run(parser, words));
  }
  EXPECT_NE(printed, "");
  EXPECT_EQ(printed, shown);
}

INSTANTIATE_TEST_SUITE_P(All, Sessions,
                         testing::Values("command_line", "config_file", "conversions", "help",
                                         "registry", "strings"),
                         [](const auto& session) { return session.param; });

}  // namespace norq
