#include <norq/options/option_parser.h>

#include <memory>

#include "config.h"

namespace bench {
namespace {

std::function<bool(const std::string&)> make(const Workload& work) {
  auto parser = std::make_shared<norq::OptionParser>(norq::BOOL_STYLE_NO_PREFIX, false);
  for (const OptionSpec& option : work.options) {
    norq::OptionType type = norq::OPT_BOOL;
    if (option.kind == Kind::integer) type = norq::OPT_INT;
    if (option.kind == Kind::text) type = norq::OPT_STR;
    if (option.kind == Kind::real) type = norq::OPT_FLOAT;
    parser->add_option(option.name, type, option.help);
  }
  return [parser](const std::string& path) {
    parser->parse_config_file(path, 0);
    return true;
  };
}

const RegisterConfigReader registered({"norq", make});

}  // namespace
}  // namespace bench
