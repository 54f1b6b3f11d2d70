// The entry of libFuzzer and, where that is not linked, a program that checks the files that
// it is given and then inputs that are pieced together from them, the same in every run.

#include <fstream>
#include <iterator>
#include <random>

#include "fuzz.h"

#ifdef NORQ_LIBFUZZER
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  norq::check(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
#else
int main(int argc, char** argv) {
  norq::Strings seeds;
  for (int i = 1; i < argc; ++i) {
    std::ifstream file(argv[i], std::ios::binary);
    seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    norq::check(seeds.back());
  }
  std::mt19937 random(2027);
  for (int i = 0; i < 2000; ++i) {
    std::string input = seeds[random() % seeds.size()];
    for (input.resize(random() % input.size()); random() % 30 != 0;) {
      const std::string& seed = seeds[random() % seeds.size()];
      input += seed.substr(random() % seed.size(), random() % 12);
      if (random() % 16 == 0) input += static_cast<char>(random());
    }
    norq::check(input);
  }
}
#endif
