#include "support.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <set>
#include <sstream>
#include <utility>

static norq::Failing failing_now = norq::Failing::NONE;
static int succeeding = 0;
static bool any_failed = false;

// The linker redirects calls of malloc to __wrap_malloc, and of __real_malloc to malloc (--wrap).
extern "C" void* __real_malloc(std::size_t size);
extern "C" [[gnu::visibility("default")]] void* __wrap_malloc(std::size_t size) {
  if (failing_now == norq::Failing::NONE || succeeding-- > 0) return __real_malloc(size);
  if (failing_now == norq::Failing::ONE) failing_now = norq::Failing::NONE;
  any_failed = true;
  return nullptr;
}
void* operator new(std::size_t size) {
  void* const block = std::malloc(size);
  return block != nullptr ? block : throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return std::malloc(size);
}
void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
  std::free(block);
}

std::string norq::announced;

void norq::Exception::dump_msg_and_raise_assertion() {
  const Failing failing = std::exchange(failing_now, Failing::NONE);  // it must not throw
  announced.append(what()) += ';';
  failing_now = failing;
}

namespace norq {

void let_allocations_fail(Failing failing, int count) {
  failing_now = failing;
  succeeding = count;
  any_failed = false;
}

bool stop_failing_allocations() {
  failing_now = Failing::NONE;
  return any_failed;
}

SampleParser::SampleParser(OptionBoolStyle style) : OptionParser(style, false) {
  const char* const keys[] = {"verbose", "size", "count", "ratio", "out", "dump", "mode"};
  for (int type = OPT_BOOL; type <= OPT_ENUM; ++type) add_option(keys[type], OptionType(type), "");
  add_enum_value("mode", "fast", 7, "");
}

void parse_args(OptionParser& parser, const Strings& arguments, Strings* remaining, int level) {
  std::vector<const char*> argv = {"-program"};
  for (const std::string& argument : arguments) argv.push_back(argument.c_str());
  parser.parse_args(static_cast<int>(argv.size()), argv.data(), *remaining, level);
}

std::string help_of(OptionParser& parser, OptionPrintOrder order, OptionPrintStyle style,
                    const std::string& heading) {
  struct : std::stringbuf {
    int sync() override {
      flushed.assign(pbase(), pptr());
      return 0;
    }
    std::string flushed = std::string(1 << 14, '?');
  } buffer;
  buffer.str(buffer.flushed);  // so that only `print_help` allocates
  std::ostream out(&buffer);
  parser.print_help(out, heading, order, style);
  return buffer.flushed;
}

std::string outcome_of(const OptionParser& parser, const std::function<void()>& call) {
  std::ostringstream out;
  out.precision(9);  // shows every float exactly
  try {
    call();
  } catch (const Exception& exception) {
    out << exception.what();
  }
  hsh::HashSet<std::string> keys;
  parser.get_options_set(keys);
  for (const std::string& key : std::set<std::string>(keys.begin(), keys.end())) {
    out << (out.tellp() == 0 ? "" : "; ") << key << " =";
    const auto append_if_served = [&](auto getter, auto value) {
      if ((parser.*getter)(key, &value)) out << ' ' << std::boolalpha << value;
    };
    append_if_served(&OptionParser::get_bool_option, false);
    append_if_served(&OptionParser::get_int_option, 0);
    append_if_served(&OptionParser::get_float_option, 0.0F);
    append_if_served(&OptionParser::get_str_option, std::string());
  }
  return out.str();
}

std::string view_of(OptionParser& parser, const Strings& keys) {
  std::string view = outcome_of(parser) + '\n';
  view += help_of(parser, OptionPrintOrder(-1), PRINT_STYLE_TAB);
  view += help_of(parser, PRINT_ORDER_GROUP_NAME, PRINT_STYLE_TAB);
  for (const std::string& key : keys) {
    if (!parser.has_option(key, nullptr)) continue;
    const Option& o = *parser.get_option(key);
    view += testing::PrintToString(
        std::tuple(o.name, o.type, o.help, o.group, o.is_set, o.index, o.level));
    if (o.enum_values != nullptr) view += testing::PrintToString(*o.enum_values);
  }
  return view;
}

void expect_linear_time(std::size_t size, const std::function<void(std::size_t)>& run) {
  std::clock_t best[] = {1'000'000'000, 1'000'000'000};  // of the processor's time
  for (int attempt = 1; attempt <= 9; ++attempt) {
    for (const std::size_t factor : {1u, 2u}) {
      const std::clock_t start = std::clock();
      run(factor * size);
      best[factor - 1] = std::min(best[factor - 1], std::clock() - start);
    }
    if (attempt >= 3 && best[1] <= 3 * best[0]) return;
  }
  ADD_FAILURE() << best[0] << " microseconds, and for twice the input " << best[1];
}

}  // namespace norq
