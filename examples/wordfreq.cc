// wordfreq: counts the words of files, or of standard input, and prints the most frequent ones.
#include <algorithm>
#include <cctype>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "norq/options/option_parser.h"
#include "norq/utils/string_utils.h"

using namespace norq;

namespace {

using Counts = std::map<std::string, int>;

void register_options(OptionParser& options) {
  options.add_option("config", OPT_STR, "Configuration file; the command line overrides it.");
  options.add_option("help", OPT_FLAG, "Print this listing.");
  options.add_option("help_order", OPT_ENUM, "Order of this listing; group if not given.");
  options.add_enum_value("help_order", "index", PRINT_ORDER_INDEX, "as registered");
  options.add_enum_value("help_order", "name", PRINT_ORDER_NAME, "by name");
  options.add_enum_value("help_order", "group", PRINT_ORDER_GROUP_NAME, "by group and name");
  options.add_option("help_style", OPT_ENUM, "Layout of this listing; aligned if not given.");
  options.add_enum_value("help_style", "tab", PRINT_STYLE_TAB, "for other programs");
  options.add_enum_value("help_style", "aligned", PRINT_STYLE_ALIGNED, "in two columns");
  options.add_enum_value("help_style", "indented", PRINT_STYLE_INDENTED, "texts below names");
  options.set_cur_help_group("What is counted");
  options.add_option("fold_case", OPT_BOOL, "Whether The counts as the; no if not given.");
  options.add_option("leave_out", OPT_STR, "File of words not to count.");
  options.set_cur_help_group("What is printed");
  options.add_option("min_percent", OPT_FLOAT, "Least share, in per cent, of a word to print.");
  options.add_option("order", OPT_ENUM, "Order of the words; count if not given.");
  options.add_enum_value("order", "count", 0, "the most frequent first");
  options.add_enum_value("order", "word", 1, "by the word's bytes");
  options.add_option("skip", OPT_INT,
                     "How many of the most frequent words to skip; a negative number counts from "
                     "the end, so that -3 leaves the last three.");
  options.add_option("top", OPT_UINT, "How many words to print at most; 10 if not given.");
}

void count_words(std::istream& in, const std::string& file_name, bool fold_case, Counts* counts) {
  const auto is_punctuation = [](char byte) {
    return std::ispunct(static_cast<unsigned char>(byte));
  };
  for (std::string text; in >> text;) {
    std::string word = str::strip(text, is_punctuation);
    const auto lower = [](char byte) {
      return static_cast<char>(std::tolower(static_cast<unsigned char>(byte)));
    };
    if (fold_case) std::transform(word.begin(), word.end(), word.begin(), lower);
    if (!word.empty()) ++(*counts)[word];
  }
  if (!in.eof()) throw Exception("unable to read file: ", true) << file_name;
}

void print_help(OptionParser& options) {
  int order = PRINT_ORDER_GROUP_NAME;  // stays if the option is not set
  int style = PRINT_STYLE_ALIGNED;
  options.get_int_option("help_order", &order);
  options.get_int_option("help_style", &style);
  options.print_help(std::cout, "Usage: wordfreq [options] [file ...]", OptionPrintOrder(order),
                     OptionPrintStyle(style));
}

void print_words(const OptionParser& options, const Counts& counts) {
  int skip = 0;
  int top = 10;
  int by_word = 0;
  float min_percent = 0;
  options.get_int_option("skip", &skip);
  options.get_int_option("top", &top);
  options.get_int_option("order", &by_word);
  options.get_float_option("min_percent", &min_percent);

  std::vector<std::pair<std::string, int>> words(counts.begin(), counts.end());
  std::stable_sort(words.begin(), words.end(),
                   [](const auto& a, const auto& b) { return a.second > b.second; });
  double total = 0;
  for (const auto& [word, count] : words) total += count;

  const int size = static_cast<int>(words.size());
  const int begin = std::clamp(skip < 0 ? size + skip : skip, 0, size);
  auto entry = words.begin() + begin;
  const auto end = entry + std::min(top, size - begin);
  if (by_word != 0) std::sort(entry, end);
  constexpr int width = 6;  // of a column of numbers
  std::cout << std::fixed << std::setprecision(1);
  for (; entry != end; ++entry) {
    const auto& [word, count] = *entry;
    const double percent = 100 * count / total;
    if (percent < static_cast<double>(min_percent)) continue;
    std::cout << std::setw(width) << count << std::setw(width) << percent << "% " << word << '\n';
  }
}

void run(int argc, char** argv) {
  OptionParser options(BOOL_STYLE_NO_PREFIX, false);
  register_options(options);

  // Two sources: a setting of the smaller level, the command line's, is never replaced by the
  // other's, so it does not matter that the file is read later.
  std::vector<std::string> files;
  options.parse_args(argc, argv, files, 0);
  std::string config;
  if (options.get_str_option("config", &config)) options.parse_config_file(config, 1);
  if (options.get_flag_option("help")) return print_help(options);

  bool fold_case = false;
  options.get_bool_option("fold_case", &fold_case);
  const auto count_file = [&](const std::string& file_name, Counts* counts) {
    std::ifstream file(file_name);
    count_words(file, file_name, fold_case, counts);
  };
  Counts counts;
  for (const std::string& file : files) count_file(file, &counts);
  if (files.empty()) count_words(std::cin, "standard input", fold_case, &counts);
  std::string leave_out;
  Counts left_out;
  if (options.get_str_option("leave_out", &leave_out)) count_file(leave_out, &left_out);
  for (const auto& [word, count] : left_out) counts.erase(word);
  print_words(options, counts);
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);  // a synchronised standard input takes errors for its end
  try {
    run(argc, argv);
    if (!std::cout.flush()) throw Exception("unable to write to standard output", true);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 2;
  }
}
