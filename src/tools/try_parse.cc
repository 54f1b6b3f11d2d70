#include "norq/tools/try_parse.h"

#include <exception>

namespace norq {

namespace {

void report(const char* text, std::string* message) noexcept {
  if (message == nullptr) return;
  try {
    *message = text;
  } catch (...) {
    message->clear();
  }
}

template <class Parse>
bool attempt(Parse parse, std::string* message) noexcept {
  try {
    parse();
    return true;
  } catch (const std::exception& failure) {
    report(failure.what(), message);
  } catch (...) {
    report("unknown exception", message);
  }
  return false;
}

}  // namespace

bool try_parse_args(OptionParser& options, int argc, const char* const* argv,
                    std::vector<std::string>& remaining, int level, std::string* message) noexcept {
  return attempt([&] { options.parse_args(argc, argv, remaining, level); }, message);
}

bool try_parse_config_file(OptionParser& options, const std::string& file_name, int level,
                           std::string* message) noexcept {
  return attempt([&] { options.parse_config_file(file_name, level); }, message);
}

}  // namespace norq
