#include <tclap/CmdLine.h>

#include <memory>

#include "workload.h"

namespace bench {
namespace {

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
  Checksum checksum;
  for (const Setting& setting : work.settings) {
    TCLAP::Arg* const arg = options[setting.option].get();
    switch (work.options[setting.option].kind) {
      case Kind::integer:
        checksum.add(static_cast<TCLAP::ValueArg<int>*>(arg)->getValue());
        break;
      case Kind::text:
        checksum.add(static_cast<TCLAP::ValueArg<std::string>*>(arg)->getValue());
        break;
      case Kind::boolean:
        checksum.add(static_cast<TCLAP::SwitchArg*>(arg)->getValue());
        break;
      case Kind::real:
        checksum.add(static_cast<TCLAP::ValueArg<float>*>(arg)->getValue());
        break;
    }
  }
  return checksum.sum;
}

const RegisterPeer registered({"TCLAP", cycle, nullptr});

}  // namespace
}  // namespace bench
