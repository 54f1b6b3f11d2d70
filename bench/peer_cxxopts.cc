#include <cxxopts.hpp>
#include <memory>
#include <sstream>

#include "workload.h"

namespace bench {
namespace {

void register_options(cxxopts::Options& options, const Workload& work) {
  auto adder = options.add_options();
  for (const OptionSpec& spec : work.options) {
    switch (spec.kind) {
      case Kind::integer:
        adder(spec.name, spec.help, cxxopts::value<int>());
        break;
      case Kind::text:
        adder(spec.name, spec.help, cxxopts::value<std::string>());
        break;
      case Kind::boolean:
        adder(spec.name, spec.help, cxxopts::value<bool>());
        break;
      case Kind::real:
        adder(spec.name, spec.help, cxxopts::value<float>());
        break;
    }
  }
}

double cycle(const Workload& work) {
  cxxopts::Options options("host");
  register_options(options, work);
  const auto& argv = work.argv(2);
  const auto result = options.parse(static_cast<int>(argv.size()) - 1, argv.data());
  return read_back(work, [&](const Setting& setting, auto type) -> decltype(auto) {
    return result[work.options[setting.option].name].as<decltype(type)>();
  });
}

std::function<std::size_t()> make_lister(const Workload& work) {
  auto options = std::make_shared<cxxopts::Options>("host");
  register_options(*options, work);
  return [options] {
    std::ostringstream out;
    out << options->help();
    return out.str().size();
  };
}

const RegisterPeer registered({"cxxopts", cycle, make_lister});

}  // namespace
}  // namespace bench
