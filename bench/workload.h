#ifndef NORQ_BENCH_WORKLOAD_H
#define NORQ_BENCH_WORKLOAD_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace bench {

// The work that every library does alike.

enum class Kind { integer, text, boolean, real };

struct OptionSpec {
  std::string name;
  std::string help;
  Kind kind;
};

// An option that is given, and its value. (A boolean is switched on by its name alone.)
struct Setting {
  std::size_t option;
  std::string value;
};

struct Workload {
  Workload(std::size_t option_count, std::size_t argument_count);

  // The argument vector with this many dashes before the names. Its strings belong to the workload.
  const std::vector<const char*>& argv(int dashes) const { return argvs[dashes - 1]; }

  std::vector<OptionSpec> options;
  std::vector<Setting> settings;

 private:
  std::vector<std::string> arguments[2];
  std::vector<const char*> argvs[2];
};

// Gathers what was read back, so that no library gets away with less work than another.
struct Checksum {
  void add(int value) { sum += value; }
  void add(bool value) { sum += value ? 3 : 0; }
  void add(float value) { sum += static_cast<double>(value); }
  void add(const std::string& value) {
    sum += static_cast<double>(value.size()) + (value.empty() ? 0 : value.back());
  }

  double sum = 0;
};

// Reads back what was given and sums it up. `read` takes a setting and an object of the type that
// is wanted, and returns the value that its library stored.
template <class Read>
double read_back(const Workload& work, const Read& read) {
  Checksum checksum;
  for (const Setting& setting : work.settings) {
    switch (work.options[setting.option].kind) {
      case Kind::integer:
        checksum.add(read(setting, int()));
        break;
      case Kind::text: {
        const std::string& text = read(setting, std::string());
        checksum.add(text);
        break;
      }
      case Kind::boolean:
        checksum.add(read(setting, bool()));
        break;
      case Kind::real:
        checksum.add(read(setting, float()));
        break;
    }
  }
  return checksum.sum;
}

// For the libraries that store into the host's variables: that of the wanted type.
template <class Value>
int member_of(const Value& value, int /*type*/) {
  return value.number;
}
template <class Value>
const auto& member_of(const Value& value, const std::string& /*type*/) {
  return value.text;
}
template <class Value>
bool member_of(const Value& value, bool /*type*/) {
  return value.on;
}
template <class Value>
float member_of(const Value& value, float /*type*/) {
  return value.real;
}

// What the text of a setting stands for.
inline int convert(const std::string& text, int /*type*/) {
  return std::stoi(text);
}
inline const std::string& convert(const std::string& text, const std::string& /*type*/) {
  return text;
}
inline bool convert(const std::string& /*text*/, bool /*type*/) {
  return true;
}
inline float convert(const std::string& text, float /*type*/) {
  return std::stof(text);
}

// A library that takes part.
struct Peer {
  const char* name;
  // Makes a parser, registers the options, parses the arguments, reads the values back.
  double (*cycle)(const Workload& work);
  // Makes a parser, registers the options, and returns what lists them and tells the length of the
  // listing. Null if that is not compared.
  std::function<std::size_t()> (*make_lister)(const Workload& work);
};

std::vector<Peer>& peers();

struct RegisterPeer {
  explicit RegisterPeer(const Peer& peer) { peers().push_back(peer); }
};

}  // namespace bench

#endif  // NORQ_BENCH_WORKLOAD_H
