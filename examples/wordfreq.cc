// wordfreq: counts the words of files, or of standard input, and prints the most frequent ones.
#include <fstream>
#include <iostream>

#include "norq/options/option_parser.h"
#include "norq/tools/checks.h"
#include "norq/tools/completion.h"
#include "norq/tools/config_writer.h"
#include "norq/tools/defaults.h"
#include "norq/tools/hints.h"
#include "words.h"

using namespace norq;

static void register_options(OptionParser& options) {
  options.add_option("config", OPT_STR, "Configuration file; the command line overrides it.");
  options.add_option("write_config", OPT_FLAG, "Print the settings as a configuration file.");
  options.add_option("completion", OPT_ENUM, "Print a completion script for a shell.");
  options.add_enum_value("completion", "bash", COMPLETION_BASH, "");
  options.add_enum_value("completion", "zsh", COMPLETION_ZSH, "");
  options.add_enum_value("completion", "fish", COMPLETION_FISH, "");
  options.add_option("help", OPT_FLAG, "Print this help.");
  options.add_option("help_order", OPT_ENUM, "Order of the options in this help.");
  options.add_enum_value("help_order", "index", PRINT_ORDER_INDEX, "in registration order");
  options.add_enum_value("help_order", "name", PRINT_ORDER_NAME, "by name");
  options.add_enum_value("help_order", "group", PRINT_ORDER_GROUP_NAME, "by group and name");
  options.add_option("help_style", OPT_ENUM, "Layout of this help.");
  options.add_enum_value("help_style", "tab", PRINT_STYLE_TAB, "for other programs");
  options.add_enum_value("help_style", "aligned", PRINT_STYLE_ALIGNED, "in two columns");
  options.add_enum_value("help_style", "indented", PRINT_STYLE_INDENTED,
                         "descriptions below names");
  options.set_cur_help_group("Counting");
  options.add_option("fold_case", OPT_BOOL, "Treat The and the as the same word.");
  options.add_option("leave_out", OPT_STR, "File with words to ignore.");
  options.set_cur_help_group("Output");
  options.add_option("min_percent", OPT_FLOAT, "Minimum share of a printed word, in percent.");
  options.add_option("order", OPT_ENUM, "Order of the words.");
  options.add_enum_value("order", "count", 0, "most frequent first");
  options.add_enum_value("order", "word", 1, "byte by byte");
  options.add_option("skip", OPT_INT, "Number of words to skip; -3 keeps only the last three.");
  options.add_option("top", OPT_UINT, "Maximum number of words to print.");
  set_default(options, "help_order", "group");
  set_default(options, "help_style", "aligned");
  set_default(options, "fold_case", "false");
  set_default(options, "order", "count");
  set_default(options, "top", "10");
}

static void run(OptionParser& options, int argc, char** argv) {
  std::vector<std::string> files;
  options.parse_args(argc, argv, files, 0);
  std::string config;  // with a larger level, so that the command line takes precedence
  if (options.get_str_option("config", &config)) options.parse_config_file(config, 1);
  if (options.get_flag_option("help")) {
    int order = 0;
    int style = 0;
    options.get_int_option("help_order", &order);
    options.get_int_option("help_style", &style);
    return options.print_help(std::cout, "Usage: wordfreq [options] [file ...]",
                              OptionPrintOrder(order), OptionPrintStyle(style));
  }
  constexpr double most_percent = 100;
  check_range(options, "min_percent", 0, most_percent);
  int shell = 0;
  if (options.get_int_option("completion", &shell)) {
    return write_completion(options, "wordfreq", CompletionShell(shell), std::cout);
  }
  if (options.get_flag_option("write_config")) {
    for (const char* const key : {"config", "write_config"}) options.del_option(key);
    write_config(options, std::cout, true);
    return;
  }
  bool fold_case = false;
  options.get_bool_option("fold_case", &fold_case);
  Listing listing;
  options.get_int_option("skip", &listing.skip);
  options.get_int_option("top", &listing.top);
  options.get_int_option("order", &listing.by_word);
  options.get_float_option("min_percent", &listing.min_percent);

  Counts counts;
  const auto count = [&](std::istream&& in, const std::string& name, Counts* into) {
    count_words(in, fold_case, into);
    if (!in.eof()) throw Exception("unable to read file: ", true) << name;
  };
  for (const std::string& file : files) count(std::ifstream(file), file, &counts);
  if (files.empty()) count(std::move(std::cin), "standard input", &counts);
  Counts left_out;
  std::string leave_out;
  if (options.get_str_option("leave_out", &leave_out)) {
    count(std::ifstream(leave_out), leave_out, &left_out);
  }
  for (const auto& [word, number] : left_out) counts.erase(word);
  print_words(counts, listing, std::cout);
}

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(
      false);  // otherwise std::cin reports read errors as the end of the file
  OptionParser options(BOOL_STYLE_NO_PREFIX, false);
  try {
    register_options(options);
    run(options, argc, argv);
    if (!std::cout.flush()) throw Exception("unable to write to standard output", true);
    return 0;
  } catch (const Exception& error) {
    std::cerr << explain(options, error) << '\n';
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
  }
  return 2;
}
