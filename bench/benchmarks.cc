// All measurements inside one process. Benchmarks are named measure/library/options/settings.

#include <norq/options/option_parser.h>
#include <norq/utils/sort.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>

#include "workload.h"

namespace bench {
namespace {

// Numbers of options and settings.
const std::map<std::string, std::vector<std::vector<std::int64_t>>> sizes_of = {
    {"cycle", {{10, 5}, {50, 10}, {100, 100}, {1000, 10}, {1000, 1000}, {10000, 10000}}},
    {"growth", {{100, 100}, {1000, 1000}, {10000, 10000}, {100000, 100000}}},
    {"help", {{100, 0}, {1000, 0}}},
    {"config", {{100, 100}, {1000, 1000}, {1000, 100000}}},
    {"containers", {{10, 0}, {100, 0}, {1000, 0}, {10000, 0}}},
};

const Workload& workload_of(std::size_t options, std::size_t settings) {
  static std::map<std::pair<std::size_t, std::size_t>, Workload> made;
  return made.try_emplace({options, settings}, options, settings).first->second;
}

template <class Measure>
void add(const std::string& name, const std::string& size_set, Measure measure) {
  auto* const added = benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    measure(state, workload_of(state.range(0), state.range(1)));
  });
  added->Unit(benchmark::kMicrosecond);
  for (const auto& sizes : sizes_of.at(size_set)) added->Args(sizes);
}

void add_peer(const Peer& peer, const std::string& measure) {
  add(measure + "/" + peer.name, measure, [=](benchmark::State& state, const Workload& work) {
    const double expected = peers.back().use({work});  // without any library
    const auto check = [&](const Run& run) {
      if (peer.use(run) != expected) state.SkipWithError("read back other values");
    };
    if (measure == "help") return check({work, &state});
    if (measure == "config") return check({work, nullptr, &state});
    for (auto _ : state) check({work});
  });
}

// A lower bound for a cycle: only copies the strings of the options.
void copy_strings(benchmark::State& state, const Workload& work) {
  for (auto _ : state) {
    std::vector<std::tuple<std::string, std::string, std::string>> copies;
    copies.reserve(work.options.size());
    for (const Option& option : work.options) {
      copies.emplace_back(option.name, option.name, option.help);
    }
    benchmark::DoNotOptimize(copies.data());
  }
}

template <class Map>
struct Filled : Map {
  explicit Filled(const Workload& work) {
    for (const Option& option : work.options) this->insert({option.name, 1});
  }
};

template <class Map>
void add_map(const std::string& library) {
  add("insert/" + library, "containers", [](benchmark::State& state, const Workload& work) {
    for (auto _ : state) benchmark::DoNotOptimize(Filled<Map>(work).size());
  });
  add("find/" + library, "containers", [](benchmark::State& state, const Workload& work) {
    Filled<Map> map(work);
    for (auto _ : state) {
      for (const Option& option : work.options) benchmark::DoNotOptimize(map.find(option.name));
    }
  });
}

template <class Sort>
void add_sort(const std::string& library, Sort sort) {
  add("sort/" + library, "containers", [=](benchmark::State& state, const Workload& work) {
    const auto by_name = [](const Option* a, const Option* b) { return a->name < b->name; };
    std::vector<const Option*> options;
    for (const Option& option : work.options) options.push_back(&option);
    std::vector<const Option*> sorted;
    for (auto _ : state) {
      sorted = options;
      sort(sorted.data(), sorted.data() + sorted.size(), by_name);
      benchmark::DoNotOptimize(sorted.data());
    }
  });
}

// Reports the size of the texts of 10000 options, and of a parser with these options, in bytes.
void measure_memory() {
  const auto resident_bytes = [] {
    long pages[2] = {};  // all, and those in memory
    std::ifstream("/proc/self/statm") >> pages[0] >> pages[1];
    return pages[1] * sysconf(_SC_PAGESIZE);
  };
  const Workload work(10000, 0);
  std::size_t text_bytes = 0;
  const long before = resident_bytes();
  norq::OptionParser parser(norq::BOOL_STYLE_NO_PREFIX, false);
  for (const Option& option : work.options) {
    parser.add_option(option.name, norq::OPT_INT, option.help);
    text_bytes += 2 * option.name.size() + option.help.size();  // the key is a copy of the name
  }
  benchmark::AddCustomContext("parser_bytes", std::to_string(resident_bytes() - before));
  benchmark::AddCustomContext("text_bytes", std::to_string(text_bytes));
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  using namespace bench;
  measure_memory();
  for (const Peer& peer : peers) {
    for (const std::string& measure : peer.measures) add_peer(peer, measure);
  }
  add("cycle/floor", "cycle", copy_strings);
  add_map<norq::hsh::HashMap<std::string, int>>("norq");
  add_map<std::unordered_map<std::string, int>>("std");
  add_sort("norq", [](auto first, auto last, auto less) { norq::sort(first, last, less); });
  add_sort("std", [](auto first, auto last, auto less) { std::sort(first, last, less); });
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
}
