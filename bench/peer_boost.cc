#include <boost/program_options.hpp>
#include <memory>
#include <sstream>

#include "workload.h"

namespace bench {
namespace {

namespace po = boost::program_options;

void register_options(po::options_description& description, const Workload& work) {
  auto add = description.add_options();
  for (const OptionSpec& spec : work.options) {
    switch (spec.kind) {
      case Kind::integer:
        add(spec.name.c_str(), po::value<int>(), spec.help.c_str());
        break;
      case Kind::text:
        add(spec.name.c_str(), po::value<std::string>(), spec.help.c_str());
        break;
      case Kind::boolean:
        add(spec.name.c_str(), po::bool_switch(), spec.help.c_str());
        break;
      case Kind::real:
        add(spec.name.c_str(), po::value<float>(), spec.help.c_str());
        break;
    }
  }
}

double cycle(const Workload& work) {
  po::options_description description;
  register_options(description, work);
  po::variables_map values;
  const auto& argv = work.argv(2);
  po::store(po::parse_command_line(static_cast<int>(argv.size()) - 1, argv.data(), description),
            values);
  po::notify(values);
  return read_back(work, [&](const Setting& setting, auto type) -> decltype(auto) {
    return values[work.options[setting.option].name].as<decltype(type)>();
  });
}

std::function<std::size_t()> make_lister(const Workload& work) {
  auto description = std::make_shared<po::options_description>();
  register_options(*description, work);
  return [description] {
    std::ostringstream out;
    out << *description;
    return out.str().size();
  };
}

const RegisterPeer registered({"Boost.Program_options", cycle, make_lister});

}  // namespace
}  // namespace bench
