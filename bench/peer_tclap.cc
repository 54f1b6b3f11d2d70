#include <tclap/CmdLine.h>

#include <memory>

#include "workload.h"

namespace bench {
namespace {

bool value_of(TCLAP::Arg& arg, bool /*type*/) {
  return static_cast<TCLAP::SwitchArg&>(arg).getValue();
}

template <class T>
const T& value_of(TCLAP::Arg& arg, const T& /*type*/) {
  return static_cast<TCLAP::ValueArg<T>&>(arg).getValue();
}

double cycle(const Workload& work) {
  TCLAP::CmdLine command("host", '=', "1", false);
  std::vector<std::unique_ptr<TCLAP::Arg>> options;
  for (const OptionSpec& spec : work.options) {
    switch (spec.kind) {
      case Kind::integer:
        options.push_back(std::make_unique<TCLAP::ValueArg<int>>("", spec.name, spec.help, false, 0,
                                                                 "int", command));
        break;
      case Kind::text:
        options.push_back(std::make_unique<TCLAP::ValueArg<std::string>>(
            "", spec.name, spec.help, false, "", "text", command));
        break;
      case Kind::boolean:
        options.push_back(
            std::make_unique<TCLAP::SwitchArg>("", spec.name, spec.help, command, false));
        break;
      case Kind::real:
        options.push_back(std::make_unique<TCLAP::ValueArg<float>>("", spec.name, spec.help, false,
                                                                   0.0f, "float", command));
        break;
    }
  }
  const auto& argv = work.argv(2);
  command.parse(static_cast<int>(argv.size()) - 1, argv.data());
  return read_back(work, [&](const Setting& setting, auto type) -> decltype(auto) {
    return value_of(*options[setting.option], type);
  });
}

const RegisterPeer registered({"TCLAP", cycle, nullptr});

}  // namespace
}  // namespace bench
