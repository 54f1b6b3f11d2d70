// listings: a few options in each order and each style of the help listing.
#include <iostream>

#include "norq/options/option_parser.h"

int main() {
  norq::OptionParser options(norq::BOOL_STYLE_NO_PREFIX, false);
  options.add_option("verbose", norq::OPT_BOOL, "Tell what is done.");
  options.set_cur_help_group("Output");
  options.add_option("width", norq::OPT_UINT, "Columns of the output; 80 if not given.");
  options.add_option("format", norq::OPT_ENUM,
                     "What the output looks like. Other programs read the first of these, people "
                     "the second.");
  options.add_enum_value("format", "csv", 0, "one line a record");
  options.add_enum_value("format", "table", 1, "with borders");
  options.set_cur_help_group("Input");
  options.add_option("encoding", norq::OPT_STR, "Encoding of the files.\nUTF-8 if not given.");
  options.add_option("fast", norq::OPT_FLAG, "deprecated");

  const std::pair<const char*, norq::OptionPrintOrder> orders[] = {
      {"as registered", norq::PRINT_ORDER_INDEX},
      {"by name", norq::PRINT_ORDER_NAME},
      {"by kind, as registered", norq::PRINT_ORDER_TYPE_INDEX},
      {"by kind and name", norq::PRINT_ORDER_TYPE_NAME},
      {"by group and name", norq::PRINT_ORDER_GROUP_NAME}};
  const std::pair<const char*, norq::OptionPrintStyle> styles[] = {
      {"for other programs", norq::PRINT_STYLE_TAB},
      {"in two columns", norq::PRINT_STYLE_ALIGNED},
      {"texts below names", norq::PRINT_STYLE_INDENTED}};
  for (const auto& [order_name, order] : orders) {
    for (const auto& [style_name, style] : styles) {
      const std::string heading = std::string("== ") + order_name + ", " + style_name;
      options.print_help(std::cout, heading, order, style);
    }
  }
}
