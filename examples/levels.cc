// levels: settings from the command line and any number of files, ranked by level.
// Usage: levels [options] [file ...]
#include <algorithm>
#include <iostream>

#include "norq/options/option_parser.h"

static void run(int argc, char** argv) {
  norq::OptionParser options(norq::BOOL_STYLE_NO_PREFIX, false);
  options.add_option("colour", norq::OPT_STR, "");
  options.add_option("width", norq::OPT_UINT, "");
  options.add_option("verbose", norq::OPT_BOOL, "");

  // The smallest level wins, whatever the order of reading. Here the command line comes first, then
  // the files in order, then a default.
  std::vector<std::string> files;
  options.parse_args(argc, argv, files, 0);
  int level = 1;
  for (const std::string& file : files) options.parse_config_file(file, level++);
  options.parse_option("width", "80", level);

  norq::hsh::HashSet<std::string> set;
  options.get_options_set(set);
  std::vector<std::string> keys(set.begin(), set.end());
  std::sort(keys.begin(), keys.end());
  for (const std::string& key : keys) {
    std::cout << key << " was set by the source of level " << options.get_option(key)->level
              << '\n';
  }
}

int main(int argc, char** argv) {
  try {
    run(argc, argv);
  } catch (const norq::Exception& error) {
    std::cerr << error.what() << '\n';
    return 2;
  }
}
