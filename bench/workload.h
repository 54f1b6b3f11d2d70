// The work that all libraries do: the options, the settings, and the steps that peers implement.
#ifndef NORQ_BENCH_WORKLOAD_H
#define NORQ_BENCH_WORKLOAD_H

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

namespace bench {

using Value = std::variant<int, std::string, bool, float>;

struct Option {
  std::size_t index;
  std::string name;
  std::string help;
  Value empty;  // of the option's type
};

struct Setting {
  const Option& option;
  std::string value;
  std::string argument;  // "--name=value", or "--name", which switches a boolean on
};

struct Workload {
  Workload(std::size_t option_count, std::size_t setting_count);
  Workload(const Workload&) = delete;
  Workload& operator=(const Workload&) = delete;

  std::vector<Option> options;
  std::vector<Setting> settings;
  int argc;
  std::vector<const char*> argv;         // with a null at the end
  std::vector<const char*> single_argv;  // the same with single dashes
};

// The steps. A peer's functions for options are called with an option and an empty value of its
// type.
struct Run {
  template <class Add>
  void add_options(Add add) const {
    for (const Option& option : work.options) {
      std::visit([&](auto empty) { add(option, empty); }, option.empty);
    }
  }

  // If listings are measured, times `list`, which writes the help to a stream.
  template <class List>
  void measure_listing(List list) const {
    if (listing == nullptr) return;
    for (auto _ : *listing) {
      std::ostringstream out;
      list(out);
      benchmark::DoNotOptimize(out.str().size());
    }
  }

  // If files are measured, times `read`, which reads the file with the given path, and returns
  // true.
  template <class Read>
  bool measure_file(Read read) const {
    if (file == nullptr) return false;
    const char* const path = "settings.conf";
    std::ofstream out(path);
    for (const Setting& set : work.settings) out << set.option.name << " = " << set.value << '\n';
    out.close();
    for (auto _ : *file) read(path);
    std::remove(path);
    return true;
  }

  // Returns a checksum of the values that `read` returns for the settings.
  template <class Read>
  double read_back(Read read) const {
    double sum = 0;
    for (const Setting& setting : work.settings) {
      const auto add_value = [&](auto empty) {
        const decltype(empty)& value = read(setting.option, empty);
        sum += weight(value);
      };
      std::visit(add_value, setting.option.empty);
    }
    return sum;
  }
  static double weight(double number) { return number; }
  static double weight(const std::string& text) { return text.empty() ? 0 : text.back(); }

  const Workload& work;
  benchmark::State* listing = nullptr;
  benchmark::State* file = nullptr;
};

struct Peer {
  std::string name;
  double (*use)(const Run& run);  // returns what `read_back` returned
  std::vector<std::string> measures;
};

extern const std::vector<Peer> peers;

}  // namespace bench

#endif  // NORQ_BENCH_WORKLOAD_H
