#ifndef NORQ_TESTS_SAMPLE_PARSER_H
#define NORQ_TESTS_SAMPLE_PARSER_H

#include <string>

#include "norq/options/option_parser.h"

namespace norq {

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
  std::string state;
  bool verbose;
  int number;
  std::string out;
  if (parser.get_bool_option("verbose", &verbose)) {
    state += verbose ? "verbose=true " : "verbose=false ";
  }
  if (parser.get_int_option("count", &number)) state += "count=" + std::to_string(number) + " ";
  if (parser.get_str_option("out", &out)) state += "out=" + out + " ";
  if (parser.get_flag_option("dump")) state += "dump ";
  if (parser.get_int_option("mode", &number)) state += "mode=" + std::to_string(number) + " ";
  return state;
}

// The text of the exception that `call` throws, or "".
template <class Call>
std::string refusal_of(Call call) {
  try {
    call();
  } catch (const Exception& exception) {
    return exception.what();
  }
  return "";
}

}  // namespace norq

#endif  // NORQ_TESTS_SAMPLE_PARSER_H
