#include <popt.h>

#include <cstdlib>

#include "workload.h"

namespace bench {
namespace {

struct Value {
  int number = 0;
  int on = 0;
  float real = 0;
  char* text = nullptr;
};

double cycle(const Workload& work) {
  std::vector<Value> values(work.options.size());
  std::vector<poptOption> table;
  for (std::size_t i = 0; i < work.options.size(); ++i) {
    const OptionSpec& spec = work.options[i];
    unsigned type = POPT_ARG_NONE;
    void* target = &values[i].on;
    if (spec.kind == Kind::integer) {
      type = POPT_ARG_INT;
      target = &values[i].number;
    } else if (spec.kind == Kind::text) {
      type = POPT_ARG_STRING;
      target = &values[i].text;
    } else if (spec.kind == Kind::real) {
      type = POPT_ARG_FLOAT;
      target = &values[i].real;
    }
    table.push_back({spec.name.c_str(), 0, type, target, 0, spec.help.c_str(), nullptr});
  }
  table.push_back(POPT_TABLEEND);
  std::vector<const char*> argv = work.argv(2);
  poptContext context =
      poptGetContext(nullptr, static_cast<int>(argv.size()) - 1, argv.data(), table.data(), 0);
  while (poptGetNextOpt(context) > 0) {
  }
  const double sum = read_back(work, [&](const Setting& setting, auto type) -> decltype(auto) {
    return member_of(values[setting.option], type);
  });
  poptFreeContext(context);
  for (const Value& value : values) std::free(value.text);
  return sum;
}

const RegisterPeer registered({"popt", cycle, nullptr});

}  // namespace
}  // namespace bench
