// All measures that are taken inside one process. Each benchmark is named measure/library/sizes.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <map>
#include <memory>
#include <unordered_map>
#include <utility>

#include "config.h"
#include "norq/utils/hash_table.h"
#include "norq/utils/sort.h"
#include "workload.h"

namespace bench {
namespace {

using Sizes = std::pair<std::size_t, std::size_t>;

std::string name_of(const std::string& measure, const std::string& library, Sizes sizes) {
  std::string name = measure + "/" + library + "/" + std::to_string(sizes.first);
  if (sizes.second != 0) name += "/" + std::to_string(sizes.second);
  return name;
}

const Workload& workload_of(Sizes sizes) {
  static std::map<Sizes, std::unique_ptr<Workload>> made;
  auto& work = made[sizes];
  if (work == nullptr) work = std::make_unique<Workload>(sizes.first, sizes.second);
  return *work;
}

template <class Run>
void add(const std::string& name, Run run) {
  benchmark::RegisterBenchmark(name.c_str(), [run](benchmark::State& state) {
    run(state);
  })->Unit(benchmark::kMicrosecond);
}

void add_cycle(const std::string& measure, const Peer& peer, Sizes sizes) {
  add(name_of(measure, peer.name, sizes), [=](benchmark::State& state) {
    const Workload& work = workload_of(sizes);
    const double expected =
        read_back(work, [](const Setting& setting, auto type) -> decltype(auto) {
          return convert(setting.value, type);
        });
    for (auto _ : state) {
      if (peer.cycle(work) != expected) state.SkipWithError("read back something else");
    }
  });
}

// The least that the work asks of memory: a table of records with the three strings and the value,
// filled, found by name twice, and destroyed.
struct Record {
  std::string name;
  std::string help;
  std::string value;
};

double cycle_of_bare_table(const Workload& work) {
  std::unordered_map<std::string, Record> table;
  for (const OptionSpec& option : work.options) {
    table.try_emplace(option.name, Record{option.name, option.help, ""});
  }
  std::string name;
  const auto& argv = work.argv(1);
  for (std::size_t i = 1; argv[i] != nullptr; ++i) {
    const char* const text = argv[i] + 1;
    const std::size_t length = std::strcspn(text, "=");
    name.assign(text, length);
    std::string& value = table.find(name)->second.value;
    if (text[length] == '=') value = text + length + 1;
  }
  return read_back(work, [&](const Setting& setting, auto type) -> decltype(auto) {
    return convert(table.find(work.options[setting.option].name)->second.value, type);
  });
}

void add_cycles() {
  for (const Sizes sizes : {Sizes(10, 5), Sizes(50, 10), Sizes(100, 100), Sizes(1000, 10),
                            Sizes(1000, 1000), Sizes(10000, 10000)}) {
    for (const Peer& peer : peers()) add_cycle("cycle", peer, sizes);
  }
  std::vector<Peer> growing = {{"std", cycle_of_bare_table, nullptr}};
  for (const Peer& peer : peers()) {
    if (std::string(peer.name) == "norq") growing.push_back(peer);
  }
  for (const Peer& peer : growing) {
    for (const std::size_t n : {100u, 1000u, 10000u, 100000u}) add_cycle("growth", peer, {n, n});
  }
}

void add_listings() {
  for (const std::size_t n : {100u, 1000u}) {
    for (const Peer& peer : peers()) {
      if (peer.make_lister == nullptr) continue;
      add(name_of("help", peer.name, {n, 0}), [=](benchmark::State& state) {
        const auto list = peer.make_lister(workload_of({n, 0}));
        for (auto _ : state) benchmark::DoNotOptimize(list());
      });
    }
  }
}

void add_config_files() {
  for (const Sizes sizes : {Sizes(100, 100), Sizes(1000, 1000), Sizes(1000, 100000)}) {
    for (const ConfigReader& reader : config_readers()) {
      add(name_of("config", reader.name, sizes), [=](benchmark::State& state) {
        const Workload& work = workload_of({sizes.first, 0});
        const ConfigFile file(work, sizes.second);
        const auto read = reader.make(work);
        for (auto _ : state) {
          if (!read(file.path())) state.SkipWithError("the file was refused");
        }
      });
    }
  }
}

template <class Map>
void add_map(const std::string& library, std::size_t n) {
  add(name_of("insert", library, {n, 0}), [n](benchmark::State& state) {
    const Workload& work = workload_of({n, 0});
    for (auto _ : state) {
      Map map;
      for (const OptionSpec& option : work.options) map.insert({option.name, 1});
      benchmark::DoNotOptimize(map.size());
    }
  });
  add(name_of("find", library, {n, 0}), [n](benchmark::State& state) {
    const Workload& work = workload_of({n, 0});
    Map map;
    for (const OptionSpec& option : work.options) map.insert({option.name, 1});
    for (auto _ : state) {
      for (const OptionSpec& option : work.options) benchmark::DoNotOptimize(map.find(option.name));
    }
  });
}

template <class Sort>
void add_sort(const std::string& library, std::size_t n, Sort sort) {
  add(name_of("sort", library, {n, 0}), [n, sort](benchmark::State& state) {
    const Workload& work = workload_of({n, 0});
    std::vector<const OptionSpec*> options;
    for (std::size_t i = 0; i < n; ++i) options.push_back(&work.options[i * 7919 % n]);
    std::vector<const OptionSpec*> sorted;
    for (auto _ : state) {
      sorted = options;
      sort(sorted.data(), sorted.data() + n);
      benchmark::DoNotOptimize(sorted.data());
    }
  });
}

void add_containers() {
  const auto by_name = [](const OptionSpec* a, const OptionSpec* b) { return a->name < b->name; };
  for (const std::size_t n : {10u, 100u, 1000u, 10000u}) {
    add_map<norq::hsh::HashMap<std::string, int>>("norq", n);
    add_map<std::unordered_map<std::string, int>>("std", n);
    add_sort("norq", n, [=](auto first, auto last) { norq::sort(first, last, by_name); });
    add_sort("std", n, [=](auto first, auto last) { std::sort(first, last, by_name); });
  }
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  bench::add_cycles();
  bench::add_config_files();
  bench::add_listings();
  bench::add_containers();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
}
