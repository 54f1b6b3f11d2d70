// Stands in for libFuzzer where that is not linked: runs a target on the files of a directory, and
// then on random inputs, the same in every run.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "fuzz.h"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  norq::Strings inputs;
  for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
    std::ifstream file(entry.path(), std::ios::binary);
    inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  std::mt19937 random(2027);
  for (unsigned i = 0; i < 500; ++i) {
    inputs.emplace_back(random() % 400, '\0');
    for (char& byte : inputs.back()) byte = static_cast<char>(random() % (i % 2 == 0 ? 40 : 256));
  }
  for (const std::string& input : inputs)
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}
