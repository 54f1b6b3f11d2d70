#include "workload.h"

namespace bench {

namespace {

const char* const topics[] = {"solver-limit-", "search-depth-", "log-level-",    "cache-size-",
                              "output-file-",  "retry-delay-",  "worker-count-", "trace-"};

std::string value_of(Kind kind, std::size_t i) {
  switch (kind) {
    case Kind::integer:
      return std::to_string(i * 7 % 1000);
    case Kind::text:
      return "results/run-" + std::to_string(i) + ".txt";
    case Kind::real:
      return std::to_string(i % 100) + ".25";
    case Kind::boolean:
      break;
  }
  return "";
}

}  // namespace

Workload::Workload(std::size_t option_count, std::size_t argument_count) {
  for (std::size_t i = 0; i < option_count; ++i) {
    const std::string number = std::to_string(i);
    options.push_back({topics[i % 8] + number,
                       "Sets number " + number +
                           " of the quantities that steer the search; a larger value makes it "
                           "slower and more thorough.",
                       static_cast<Kind>(i % 4)});
  }
  const std::size_t stride = 7919;  // a prime, and so coprime to the counts in use
  for (std::size_t i = 0; i < argument_count; ++i) {
    const std::size_t option = (i + 1) * stride % option_count;
    settings.push_back({option, value_of(options[option].kind, i)});
  }
  for (int dashes : {1, 2}) {
    std::vector<std::string>& strings = arguments[dashes - 1];
    strings.emplace_back("host");
    for (const Setting& setting : settings) {
      const OptionSpec& option = options[setting.option];
      std::string argument(static_cast<std::size_t>(dashes), '-');
      argument += option.name;
      if (option.kind != Kind::boolean) argument += "=" + setting.value;
      strings.push_back(argument);
    }
    for (const std::string& string : strings) argvs[dashes - 1].push_back(string.c_str());
    argvs[dashes - 1].push_back(nullptr);
  }
}

std::vector<Peer>& peers() {
  static std::vector<Peer> all;
  return all;
}

}  // namespace bench
