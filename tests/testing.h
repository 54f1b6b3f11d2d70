#ifndef NORQ_TESTS_TESTING_H
#define NORQ_TESTS_TESTING_H

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "norq/options/option_parser.h"
#include "norq/utils/string_utils.h"

namespace norq {

using Strings = std::vector<std::string>;

// One option of each kind that the sources treat apart.
inline void add_sample_options(OptionParser& parser) {
  parser.add_option("verbose", OPT_BOOL, "");
  parser.add_option("count", OPT_INT, "");
  parser.add_option("out", OPT_STR, "");
  parser.add_option("dump", OPT_FLAG, "");
  parser.add_option("mode", OPT_ENUM, "");
  parser.add_enum_value("mode", "fast", 7, "");
}

// What is set, in the order above: "verbose=true count=3 ".
inline std::string state_of(const OptionParser& parser) {
  std::string state, out;
  bool verbose;
  int number;
  if (parser.get_bool_option("verbose", &verbose))
    state += verbose ? "verbose=true " : "verbose=false ";
  if (parser.get_int_option("count", &number)) state += "count=" + std::to_string(number) + " ";
  if (parser.get_str_option("out", &out)) state += "out=" + out + " ";
  if (parser.get_flag_option("dump")) state += "dump ";
  if (parser.get_int_option("mode", &number)) state += "mode=" + std::to_string(number) + " ";
  return state;
}

// The text of the exception that `call` throws, or "". An error's text ends with its fields.
template <class Call>
std::string refusal_of(Call call) {
  try {
    call();
  } catch (const OptionParser::error& caught) {
    const OptionParser::error error(caught);
    std::string end = ": " + error.name + ", value: " + error.value;
    if (!error.command_line.empty()) end += ", command-line: " + error.command_line;
    const std::string text = error.what();
    EXPECT_TRUE(text == caught.what() && text.substr(text.find(':')) == end) << text;
    return text;
  } catch (const Exception& exception) {
    return exception.what();
  }
  return "";
}

inline std::string help_of(OptionParser& parser, int order, int style,
                           const std::string& heading = "") {
  struct : std::stringbuf {
    int sync() override { return ++flushes, 0; }
    int flushes = 0;
  } buffer;
  std::ostream out(&buffer);
  parser.print_help(out, heading, OptionPrintOrder(order), OptionPrintStyle(style));
  EXPECT_EQ(buffer.flushes, 1);
  return buffer.str();
}

}  // namespace norq

#endif  // NORQ_TESTS_TESTING_H
