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

auto& flags_of(Flags& flags, int /*type*/) {
  return flags.numbers;
}
auto& flags_of(Flags& flags, const std::string& /*type*/) {
  return flags.texts;
}
auto& flags_of(Flags& flags, bool /*type*/) {
  return flags.switches;
}
auto& flags_of(Flags& flags, float /*type*/) {
  return flags.reals;
}

double cycle(const Workload& work) {
  args::ArgumentParser parser("host");
  Flags flags;
  register_options(parser, work, flags);
  const auto& argv = work.argv(2);
  parser.ParseCLI(static_cast<int>(argv.size()) - 1, argv.data());
  return read_back(work, [&](const Setting& setting, auto type) -> decltype(auto) {
    return args::get(*flags_of(flags, type)[setting.option / 4]);
  });
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
