// Prints the bytes of the keys, of the names and of the help texts of 10000 options, and the bytes
// of memory that the parser which holds them takes up: what the process grows by.

#include <norq/options/option_parser.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <memory>

#include "workload.h"

namespace {

long resident_bytes() {
  long pages = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return resident * sysconf(_SC_PAGESIZE);
}

}  // namespace

int main() {
  const bench::Workload work(10000, 0);
  std::size_t names = 0;
  std::size_t helps = 0;
  for (const bench::OptionSpec& option : work.options) {
    names += option.name.size();
    helps += option.help.size();
  }
  const long before = resident_bytes();
  const auto parser = std::make_unique<norq::OptionParser>(norq::BOOL_STYLE_NO_PREFIX, false);
  for (const bench::OptionSpec& option : work.options) {
    parser->add_option(option.name, norq::OPT_INT, option.help);
  }
  std::printf("%zu,%zu,%zu,%ld\n", names, names, helps, resident_bytes() - before);
}
