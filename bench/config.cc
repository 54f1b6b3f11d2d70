#include "config.h"

#include <cstdio>
#include <fstream>

namespace bench {

ConfigFile::ConfigFile(const Workload& work, std::size_t lines)
    : file_name("norq-bench-" + std::to_string(lines) + ".conf") {
  std::ofstream file(file_name);
  for (std::size_t i = 0; i < lines; ++i) {
    const OptionSpec& option = work.options[(i + 1) * 7919 % work.options.size()];
    file << option.name << " = ";
    if (option.kind == Kind::integer) file << i % 1000;
    if (option.kind == Kind::text) file << "results/run-" << i << ".txt";
    if (option.kind == Kind::boolean) file << (i % 3 == 0 ? "false" : "true");
    if (option.kind == Kind::real) file << i % 100 << ".25";
    file << '\n';
  }
}

ConfigFile::~ConfigFile() {
  std::remove(file_name.c_str());
}

std::vector<ConfigReader>& config_readers() {
  static std::vector<ConfigReader> all;
  return all;
}

}  // namespace bench
