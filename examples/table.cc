// table: keeps the options in a table; one loop registers them, another reads them.
#include <array>
#include <iostream>

#include "norq/options/option_parser.h"

namespace {

struct Known {
  const char* key;
  norq::OptionType type;
  const char* preset;  // used if no other value is given
  const char* help;
};

constexpr std::array<Known, 4> table = {{
    {"host", norq::OPT_STR, "localhost", "Where to connect to."},
    {"port", norq::OPT_UINT, "8080", "Which port to connect to."},
    {"retries", norq::OPT_UINT, "3", "How often to try again."},
    {"delay", norq::OPT_FLOAT, "0.5", "Seconds between the tries."},
}};

std::string text_of(const norq::OptionParser& options, const Known& known) {
  std::string text;
  int number = 0;
  float real = 0;
  if (options.get_str_option(known.key, &text)) return text;
  if (options.get_int_option(known.key, &number)) return std::to_string(number);
  if (options.get_float_option(known.key, &real)) return std::to_string(real);
  return "";
}

}  // namespace

int main(int argc, char** argv) {
  norq::OptionParser options(norq::BOOL_STYLE_NO_PREFIX, false);
  for (const Known& known : table) {
    options.add_option(known.key, known.type,
                       std::string(known.help) + " Else " + known.preset + ".");
    options.parse_option(known.key, known.preset, 1);  // the command line takes precedence
  }
  try {
    std::vector<std::string> rest;
    options.parse_args(argc, argv, rest, 0);
  } catch (const norq::Exception& error) {
    std::cerr << error.what() << '\n';
    options.print_help(std::cerr, "", norq::PRINT_ORDER_INDEX, norq::PRINT_STYLE_ALIGNED);
    return 2;
  }
  for (const Known& known : table) {
    const bool given = options.get_option(known.key)->level == 0;
    std::cout << known.key << " = " << text_of(options, known) << (given ? "\n" : " (default)\n");
  }
}
