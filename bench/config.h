#ifndef NORQ_BENCH_CONFIG_H
#define NORQ_BENCH_CONFIG_H

#include <functional>
#include <string>
#include <vector>

#include "workload.h"

namespace bench {

// A file of lines "name = value", gone when this is.
class ConfigFile {
 public:
  ConfigFile(const Workload& work, std::size_t lines);
  ConfigFile(const ConfigFile&) = delete;
  ConfigFile& operator=(const ConfigFile&) = delete;
  ~ConfigFile();
  const std::string& path() const { return file_name; }

 private:
  std::string file_name;
};

struct ConfigReader {
  const char* name;
  // Registers the options and returns what reads a file and tells whether all was accepted.
  std::function<bool(const std::string& path)> (*make)(const Workload& work);
};

std::vector<ConfigReader>& config_readers();

struct RegisterConfigReader {
  explicit RegisterConfigReader(const ConfigReader& reader) { config_readers().push_back(reader); }
};

}  // namespace bench

#endif  // NORQ_BENCH_CONFIG_H
