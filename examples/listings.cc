// listings: prints the help of a few options in each order and each layout.
#include <iostream>
#include <map>
#include <string>

#include "norq/options/option_parser.h"

int main() {
  norq::OptionParser options(norq::BOOL_STYLE_NO_PREFIX, false);
  options.add_option("verbose", norq::OPT_BOOL, "Report each step.");
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

  const std::map<norq::OptionPrintOrder, std::string> orders = {
      {norq::PRINT_ORDER_INDEX, "as registered"},
      {norq::PRINT_ORDER_NAME, "by name"},
      {norq::PRINT_ORDER_TYPE_INDEX, "by type, as registered"},
      {norq::PRINT_ORDER_TYPE_NAME, "by type and name"},
      {norq::PRINT_ORDER_GROUP_NAME, "by group and name"}};
  const std::map<norq::OptionPrintStyle, std::string> styles = {
      {norq::PRINT_STYLE_TAB, "for other programs"},
      {norq::PRINT_STYLE_ALIGNED, "in two columns"},
      {norq::PRINT_STYLE_INDENTED, "texts below names"}};
  for (const auto& [order, order_name] : orders) {
    for (const auto& [style, style_name] : styles) {
      std::cout << "== " << order_name << ", " << style_name << '\n';
      options.print_help(std::cout, "", order, style);
    }
  }
}
