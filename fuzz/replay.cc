// Stands in for libFuzzer where that is not linked: runs a target on the files of a directory, and
// then on random inputs, the same in every run.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>

#include "fuzz.h"

int main(int argc, char** argv) {
  int runs = 0;
  const auto run = [&](const std::string& bytes) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    ++runs;
  };
  if (argc != 2) return 2;
  for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
    std::ifstream file(entry.path(), std::ios::binary);
    run({std::istreambuf_iterator<char>(file), {}});
  }
  std::mt19937 random(2027);
  for (int i = 0; i < 1000; ++i) {
    std::string bytes(random() % 400, '\0');
    const bool mostly_control = i % 2 == 0;
    for (char& byte : bytes) byte = static_cast<char>(random() % (mostly_control ? 40 : 256));
    run(bytes);
  }
  std::cout << runs << " inputs\n";
}
