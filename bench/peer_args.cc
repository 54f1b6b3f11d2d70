#include <args.hxx>
#include <memory>
#include <sstream>

#include "workload.h"

namespace bench {
namespace {

// The flags are the host's, and hold the values.
struct Flags {
  std::vector<std::unique_ptr<args::ValueFlag<int>>> numbers;
  std::vector<std::unique_ptr<args::ValueFlag<std::string>>> texts;
  std::vector<std::unique_ptr<args::Flag>> switches;
  std::vector<std::unique_ptr<args::ValueFlag<float>>> reals;
};

// The kinds come in turn, so that option i is number i / 4 of its kind.
void register_options(args::ArgumentParser& parser, const Workload& work, Flags& flags) {
  for (const OptionSpec& spec : work.options) {
    switch (spec.kind) {
      case Kind::integer:
        flags.numbers.push_back(std::make_unique<args::ValueFlag<int>>(parser, "value", spec.help,
                                                                       args::Matcher{spec.name}));
        break;
      case Kind::text:
        flags.texts.push_back(std::make_unique<args::ValueFlag<std::string>>(
            parser, "value", spec.help, args::Matcher{spec.name}));
        break;
      case Kind::boolean:
        flags.switches.push_back(
            std::make_unique<args::Flag>(parser, "value", spec.help, args::Matcher{spec.name}));
        break;
      case Kind::real:
        flags.reals.push_back(std::make_unique<args::ValueFlag<float>>(parser, "value", spec.help,
                                                                       args::Matcher{spec.name}));
        break;
    }
  }
}

double cycle(const Workload& work) {
  args::ArgumentParser parser("host");
  Flags flags;
  register_options(parser, work, flags);
  const auto& argv = work.argv(2);
  parser.ParseCLI(static_cast<int>(argv.size()) - 1, argv.data());
  Checksum checksum;
  for (const Setting& setting : work.settings) {
    const std::size_t i = setting.option / 4;
    switch (work.options[setting.option].kind) {
      case Kind::integer:
        checksum.add(args::get(*flags.numbers[i]));
        break;
      case Kind::text:
        checksum.add(args::get(*flags.texts[i]));
        break;
      case Kind::boolean:
        checksum.add(args::get(*flags.switches[i]));
        break;
      case Kind::real:
        checksum.add(args::get(*flags.reals[i]));
        break;
    }
  }
  return checksum.sum;
}

std::function<std::size_t()> make_lister(const Workload& work) {
  auto parser = std::make_shared<args::ArgumentParser>("host");
  auto flags = std::make_shared<Flags>();
  register_options(*parser, work, *flags);
  return [parser, flags] {
    std::ostringstream out;
    parser->Help(out);
    return out.str().size();
  };
}

const RegisterPeer registered({"args", cycle, make_lister});

}  // namespace
}  // namespace bench
