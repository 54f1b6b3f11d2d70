#include <norq/options/option_parser.h>

#include <memory>
#include <sstream>

#include "workload.h"

namespace bench {
namespace {

void register_options(norq::OptionParser& parser, const Workload& work) {
  for (const OptionSpec& option : work.options) {
    norq::OptionType type = norq::OPT_BOOL;
    if (option.kind == Kind::integer) type = norq::OPT_INT;
    if (option.kind == Kind::text) type = norq::OPT_STR;
    if (option.kind == Kind::real) type = norq::OPT_FLOAT;
    parser.add_option(option.name, type, option.help);
  }
}

double cycle(const Workload& work) {
  norq::OptionParser parser(norq::BOOL_STYLE_NO_PREFIX, false);
  register_options(parser, work);
  std::vector<std::string> rest;
  const auto& argv = work.argv(1);
  parser.parse_args(static_cast<int>(argv.size()) - 1, argv.data(), rest, 0);
  Checksum checksum;
  for (const Setting& setting : work.settings) {
    const OptionSpec& option = work.options[setting.option];
    int number = 0;
    float real = 0;
    bool on = false;
    std::string text;
    switch (option.kind) {
      case Kind::integer:
        if (parser.get_int_option(option.name, &number)) checksum.add(number);
        break;
      case Kind::text:
        if (parser.get_str_option(option.name, &text)) checksum.add(text);
        break;
      case Kind::boolean:
        if (parser.get_bool_option(option.name, &on)) checksum.add(on);
        break;
      case Kind::real:
        if (parser.get_float_option(option.name, &real)) checksum.add(real);
        break;
    }
  }
  return checksum.sum;
}

std::function<std::size_t()> make_lister(const Workload& work) {
  auto parser = std::make_shared<norq::OptionParser>(norq::BOOL_STYLE_NO_PREFIX, false);
  register_options(*parser, work);
  return [parser] {
    std::ostringstream out;
    parser->print_help(out, "Options:", norq::PRINT_ORDER_NAME, norq::PRINT_STYLE_ALIGNED);
    return out.str().size();
  };
}

const RegisterPeer registered({"norq", cycle, make_lister});

}  // namespace
}  // namespace bench
