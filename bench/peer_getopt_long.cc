#include <getopt.h>

#include <cstdlib>

#include "workload.h"

namespace bench {
namespace {

struct Value {
  int number = 0;
  const char* text = "";
  bool on = false;
  float real = 0;
};

double cycle(const Workload& work) {
  std::vector<option> table;
  for (const OptionSpec& spec : work.options) {
    const int takes = spec.kind == Kind::boolean ? no_argument : required_argument;
    table.push_back({spec.name.c_str(), takes, nullptr, 0});
  }
  table.push_back({nullptr, 0, nullptr, 0});
  std::vector<Value> values(work.options.size());
  std::vector<const char*> argv = work.argv(2);
  optind = 0;
  int index = 0;
  while (getopt_long(static_cast<int>(argv.size()) - 1, const_cast<char* const*>(argv.data()), "",
                     table.data(), &index) == 0) {
    const auto i = static_cast<std::size_t>(index);
    switch (work.options[i].kind) {
      case Kind::integer:
        values[i].number = static_cast<int>(std::strtol(optarg, nullptr, 10));
        break;
      case Kind::text:
        values[i].text = optarg;
        break;
      case Kind::boolean:
        values[i].on = true;
        break;
      case Kind::real:
        values[i].real = std::strtof(optarg, nullptr);
        break;
    }
  }
  return read_back(work, [&](const Setting& setting, auto type) -> decltype(auto) {
    return member_of(values[setting.option], type);
  });
}

const RegisterPeer registered({"getopt_long", cycle, nullptr});

}  // namespace
}  // namespace bench
