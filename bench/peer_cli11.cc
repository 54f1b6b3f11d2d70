#include <CLI/CLI.hpp>
#include <memory>

#include "workload.h"

namespace bench {
namespace {

struct Value {
  int number = 0;
  bool on = false;
  float real = 0;
  std::string text;
};

void register_options(CLI::App& app, const Workload& work, std::vector<Value>& values) {
  for (std::size_t i = 0; i < work.options.size(); ++i) {
    const OptionSpec& spec = work.options[i];
    const std::string name = "--" + spec.name;
    switch (spec.kind) {
      case Kind::integer:
        app.add_option(name, values[i].number, spec.help);
        break;
      case Kind::text:
        app.add_option(name, values[i].text, spec.help);
        break;
      case Kind::boolean:
        app.add_flag(name, values[i].on, spec.help);
        break;
      case Kind::real:
        app.add_option(name, values[i].real, spec.help);
        break;
    }
  }
}

double cycle(const Workload& work) {
  std::vector<Value> values(work.options.size());
  CLI::App app("host");
  register_options(app, work, values);
  const auto& argv = work.argv(2);
  app.parse(static_cast<int>(argv.size()) - 1, argv.data());
  return read_back(work, [&](const Setting& setting, auto type) -> decltype(auto) {
    return member_of(values[setting.option], type);
  });
}

std::function<std::size_t()> make_lister(const Workload& work) {
  auto values = std::make_shared<std::vector<Value>>(work.options.size());
  auto app = std::make_shared<CLI::App>("host");
  register_options(*app, work, *values);
  return [app, values] {
    std::ostringstream out;
    out << app->help();
    return out.str().size();
  };
}

const RegisterPeer registered({"CLI11", cycle, make_lister});

}  // namespace
}  // namespace bench
