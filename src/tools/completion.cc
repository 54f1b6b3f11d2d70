#include "norq/tools/completion.h"

#include <algorithm>
#include <array>
#include <map>
#include <ostream>
#include <string_view>
#include <vector>

namespace norq {

namespace {

// A word that a shell completes, and the help that it shows next to it.
struct Word {
  std::string text;
  std::string help;
};

struct Words {
  std::vector<Word> names;    // -verbose
  std::vector<Word> openers;  // -mode=, which a value follows
  std::vector<Word> values;   // -mode=fast
  std::vector<Word> files;    // the openers that a file name follows
};

bool is_control(char byte) {
  return static_cast<unsigned char>(byte) < ' ' || byte == '\x7f';
}

bool is_completable(const std::string& text) {
  return !text.empty() && std::none_of(text.begin(), text.end(), is_control);
}

Word make_word(const std::string& text, const std::string& help) {
  Word word = {text, help.substr(0, help.find('\n'))};
  std::replace_if(word.help.begin(), word.help.end(), is_control, ' ');
  return word;
}

void add_words(const Option& option, OptionBoolStyle style, Words* words) {
  const std::string sign = style == BOOL_STYLE_PLUS_MINUS ? "+" : "-";
  const Word name = make_word(sign + option.name, option.help);
  if (option.type == OPT_FLAG || (option.type == OPT_BOOL && style != BOOL_STYLE_VALUE)) {
    words->names.push_back(name);
    const std::string off = style == BOOL_STYLE_PLUS_MINUS ? "-" : "-no_";
    if (option.type == OPT_BOOL) words->names.push_back({off + option.name, name.help});
    return;
  }
  const Word opener = {name.text + "=", name.help};
  words->openers.push_back(opener);
  if (option.type == OPT_STR) words->files.push_back(opener);
  if (option.type == OPT_BOOL) {
    words->values.push_back({opener.text + "true", name.help});
    words->values.push_back({opener.text + "false", name.help});
  }
  if (option.enum_values == nullptr) return;
  for (const auto& [value_name, value] : *option.enum_values) {
    if (!is_completable(value_name)) continue;
    words->values.push_back(make_word(opener.text + value_name, value.second));
  }
}

Words words_of(const OptionParser& options) {
  const OptionBoolStyle style = options.get_bool_style();
  hsh::HashSet<std::string> names;
  Words words;
  for (const auto& [key, option] : options.get_options()) {
    // Of several options with one name, the command line reaches the first.
    if (!names.insert(option.name) || !is_completable(option.name)) continue;
    if (option.name.find('=') != std::string::npos) continue;
    const bool is_negation = style == BOOL_STYLE_NO_PREFIX && option.name.compare(0, 3, "no_") == 0;
    if (!is_negation) add_words(option, style, &words);
  }
  return words;
}

// `text` in single quotes, where at most these two bytes are special. Each of them is put outside
// the quotes, after a backslash. All three shells read this the same way.
std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char byte : text) {
    const bool has_meaning = byte == '\'' || byte == '\\';
    result.append(has_meaning ? "'\\" : "").append(1, byte).append(has_meaning ? "'" : "");
  }
  return result.append("'");
}

std::string bash_word(const Word& word) {
  return "\n    " + quoted(word.text);
}

// An argument of _describe: the word, a colon and the help text, escaped with backslashes.
std::string zsh_word(const Word& word) {
  std::string description;
  for (const char byte : word.text) {
    description.append(byte == ':' || byte == '\\' ? "\\" : "").append(1, byte);
  }
  if (!word.help.empty()) description.push_back(':');
  for (const char byte : word.help) description.append(byte == '\\' ? 2 : 1, byte);
  return "\n    " + quoted(description);
}

std::string fish_word(const Word& word) {
  return "\n        printf '%s\\t%s\\n' " + quoted(word.text) + " " + quoted(word.help);
}

std::string file_word(const Word& word) {
  return " " + quoted(word.text);
}

// In a script, `write_completion` replaces the names in angle brackets.
struct Shell {
  std::string (*format)(const Word&);
  const char* script;
};

// When bash completes a word, readline replaces only $2, the part after the last '=' or ':'.
constexpr Shell bash = {bash_word, R"(<function>() {
  local last_word='([^[:space:]\\]|\\.)*$' candidates=(<names><openers>) candidate
  [[ ${COMP_LINE:0:COMP_POINT} =~ $last_word ]]
  local word=${BASH_REMATCH[0]}
  local kept=${word%"$2"}
  [[ $word == *=* ]] && candidates=(<values>)
  for candidate in<files>; do
    [[ $word == "$candidate"* ]] && compopt -o default
  done
  [[ $word != [<signs>]* ]] && compopt -o default && return
  for candidate in "${candidates[@]}"; do
    printf -v candidate %q "$candidate"
    [[ $candidate == "$word"* ]] && COMPREPLY+=("${candidate#"$kept"}")
  done
  [[ $word != *=* && ${#COMPREPLY[@]} == 1 && ${COMPREPLY[0]} == *= ]] && compopt -o nospace
}
complete -F <function> -- <program>
)"};

constexpr Shell zsh = {zsh_word, R"(<function>() {
  local word=${(Q)PREFIX}
  local -a files=(<files>)
  local -a names=(<names>)
  local -a openers=(<openers>)
  local -a values=(<values>)
  if [[ $word != [<signs>]* ]]; then
    _files
  elif [[ $word != *=* ]]; then
    _describe option names -- openers -S ''
  elif (( ${files[(Ie)${word%%=*}=]} )); then
    compset -P 1 '*='
    _files
  else
    _describe value values
  fi
}
compdef <function> <program>
)"};

constexpr Shell fish = {fish_word, R"(function <function>
    if string match -q -- '*=*' (commandline -ct)<values>
    else<names><openers>
    end
end
function <function>_has_no_files
    set -l word (commandline -ct)
    string match -q -r -- '^[<signs>]' "$word"; or return
    not contains -- (string replace -r -- '=.*' '=' "$word")<files>
end
complete -c <program> -a '(<function>)'
complete -c <program> -n <function>_has_no_files -f
)"};

constexpr std::array<Shell, 3> shells = {bash, zsh, fish};

using Parts = std::map<std::string_view, std::string>;

std::string expand(std::string_view script, const Parts& parts) {
  std::string text;
  for (;;) {
    const std::size_t start = std::min(script.find('<'), script.size());
    text.append(script.substr(0, start));
    script.remove_prefix(start);
    if (script.empty()) return text;
    const std::string_view part = script.substr(0, script.find('>') + 1);
    text.append(parts.at(part));
    script.remove_prefix(part.size());
  }
}

std::string list(const std::vector<Word>& words, std::string (*format)(const Word&)) {
  std::string text;
  for (const Word& word : words) text.append(format(word));
  return text;
}

}  // namespace

void write_completion(const OptionParser& options, const std::string& program,
                      CompletionShell shell, std::ostream& out) {
  const auto number = static_cast<std::size_t>(shell);
  if (number >= shells.size()) return;
  const Shell& target = shells[number];
  const Words words = words_of(options);
  std::string function = "_norq_";
  for (const char byte : program) {
    const bool is_digit = byte >= '0' && byte <= '9';
    const bool is_letter = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    function.push_back(is_digit || is_letter ? byte : '_');
  }
  const bool has_plus = options.get_bool_style() == BOOL_STYLE_PLUS_MINUS;
  const Parts parts = {{"<function>", function},
                       {"<program>", quoted(program)},
                       {"<signs>", has_plus ? "-+" : "-"},
                       {"<names>", list(words.names, target.format)},
                       {"<openers>", list(words.openers, target.format)},
                       {"<values>", list(words.values, target.format)},
                       {"<files>", list(words.files, file_word)}};
  const std::string text = expand(target.script, parts);
  out.write(text.data(), static_cast<std::streamsize>(text.size())).flush();
}

}  // namespace norq
