// Replaces libFuzzer where it is not linked: runs a fixed number of random inputs.

#include <iostream>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

int main() {
  std::mt19937 random(2027);
  for (int number = 0; number < 120; ++number) {
    std::cerr << "input " << number << '\r';  // what a failure prints stands after its number
    std::vector<unsigned char> bytes(random() % 6000);
    for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(random());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  }
}
