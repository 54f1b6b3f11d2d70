#include <ini.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <unordered_map>

#include "config.h"

namespace bench {
namespace {

struct Option {
  Kind kind;
  int number = 0;
  bool on = false;
  float real = 0;
  std::string text;
};

using Options = std::unordered_map<std::string, Option>;

int set(void* user, const char* /*section*/, const char* name, const char* value) {
  Options& options = *static_cast<Options*>(user);
  const auto found = options.find(name);
  if (found == options.end()) return 0;
  Option& option = found->second;
  char* end = nullptr;
  switch (option.kind) {
    case Kind::integer:
      option.number = static_cast<int>(std::strtol(value, &end, 10));
      return end != value && *end == '\0';
    case Kind::text:
      option.text = value;
      return 1;
    case Kind::boolean:
      option.on = std::strcmp(value, "true") == 0;
      return option.on || std::strcmp(value, "false") == 0;
    case Kind::real:
      option.real = std::strtof(value, &end);
      return end != value && *end == '\0';
  }
  return 0;
}

std::function<bool(const std::string&)> make(const Workload& work) {
  auto options = std::make_shared<Options>();
  for (const OptionSpec& option : work.options) (*options)[option.name].kind = option.kind;
  return [options](const std::string& path) {
    return ini_parse(path.c_str(), set, options.get()) == 0;
  };
}

const RegisterConfigReader registered({"inih", make});

}  // namespace
}  // namespace bench
