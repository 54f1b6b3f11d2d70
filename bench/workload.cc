#include "workload.h"

namespace bench {

namespace {

const std::string topics[] = {"solver-limit-", "search-depth-", "log-level-",    "cache-size-",
                              "output-file-",  "retry-delay-",  "worker-count-", "trace-"};

}  // namespace

Workload::Workload(std::size_t option_count, std::size_t setting_count)
    : argc(static_cast<int>(setting_count) + 1), argv{"host"}, single_argv{"host"} {
  const Value empty_values[] = {int(), std::string(), bool(), float()};
  for (std::size_t i = 0; i < option_count; ++i) {
    const std::string number = std::to_string(i);
    options.push_back({i, topics[i % 8] + number,
                       "Sets number " + number +
                           " of the quantities that steer the search; a larger value makes it "
                           "slower and more thorough.",
                       empty_values[i % 4]});
  }
  settings.reserve(setting_count);  // so that the arguments stay where they are
  for (std::size_t i = 0; i < setting_count; ++i) {
    const Option& option = options[(i + 1) * 7919 % option_count];
    const std::string number = std::to_string(i % 1000);
    const std::string values[] = {number, "results/last-run/" + number, "true", number + ".25"};
    const std::string& value = values[option.empty.index()];
    settings.push_back({option, value, "--" + option.name + (value == "true" ? "" : "=" + value)});
    argv.push_back(settings.back().argument.c_str());
    single_argv.push_back(argv.back() + 1);
  }
  argv.push_back(nullptr);
  single_argv.push_back(nullptr);
}

}  // namespace bench
