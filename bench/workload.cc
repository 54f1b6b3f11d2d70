#include "workload.h"

#include <algorithm>

namespace bench {

namespace {

// The parts of names: 10000 combinations of 6 to 28 bytes. Names beyond these also get a
// number.
const std::string scopes[] = {"",        "max_",    "min_",     "log_",     "tls_",
                              "raw_",    "idle_",   "soft_",    "hard_",    "http_",
                              "disk_",   "peer_",   "local_",   "batch_",   "cache_",
                              "worker_", "client_", "default_", "replica_", "request_"};
const std::string subjects[] = {
    "io",     "dns",    "job",    "map",    "page",    "file",    "heap",      "lock",   "node",
    "queue",  "table",  "token",  "index",  "retry",   "block",   "stack",     "buffer", "socket",
    "thread", "memory", "backup", "search", "session", "archive", "connection"};
const std::string properties[] = {"_age",    "_ttl",     "_cap",      "_rate",      "_mode",
                                  "_path",   "_size",    "_list",     "_limit",     "_count",
                                  "_delay",  "_depth",   "_level",    "_quota",     "_format",
                                  "_policy", "_timeout", "_interval", "_directory", "_threshold"};

std::string name_of(std::size_t index) {
  const std::size_t number = index * 7919 % 10000;  // 7919 is prime, so each number occurs once
  return scopes[number % 20] + subjects[number / 20 % 25] + properties[number / 500] +
         (index < 10000 ? "" : "_" + std::to_string(index / 10000));
}

}  // namespace

Workload::Workload(std::size_t option_count, std::size_t setting_count)
    : argc(static_cast<int>(setting_count) + 1), argv{"host"}, single_argv{"host"} {
  const Value empty_values[] = {int(), std::string(), bool(), float()};
  for (std::size_t i = 0; i < option_count; ++i) {
    std::string help =
        "Sets the " + name_of(i) +
        " of the server; takes effect when it starts or reads its configuration again.";
    std::replace(help.begin(), help.end(), '_', ' ');
    options.push_back({i, name_of(i), help, empty_values[i % 4]});
  }
  settings.reserve(setting_count);  // so that the arguments do not move
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
