#include "norq/tools/config_writer.h"

#include <cmath>
#include <fstream>
#include <random>
#include <sstream>

#include "support.h"

namespace norq {
namespace {

TEST(ConfigWriter, WritesAFileForReadersAndLeavesOutWhatItCannotHold) {
  OptionParser options(BOOL_STYLE_PLUS_MINUS, false);
  options.add_option("quiet", OPT_FLAG, "deprecated");
  options.set_cur_help_group("Late");
  options.set_cur_help_group("Early");
  options.add_option("mode", "m", OPT_ENUM, "First line.\n\nThird line.\\\n");
  options.set_cur_help_group("Late");
  for (const OptionType type : {OPT_BOOL, OPT_UINT, OPT_INT, OPT_FLOAT, OPT_STR, OPT_ENUM}) {
    options.add_option(std::string(1, static_cast<char>('t' + type)), type, "");
  }
  for (const char* const key : {"mode", "z"}) {
    for (const char* const name : {"q", "\n", "p"}) options.add_enum_value(key, name, 1, "\n");
  }
  for (const char* const key : {"quiet", "x"}) options.parse_option(key, "", 0);
  options.parse_option("mode", "q", 0);
  options.parse_option("v", "-007", 0);
  const std::vector<std::string> left_out = {"uint", "code", "-1", "-0", "inf", "nan", "="};
  options.add_option("uint", OPT_UINT, "");
  options.add_option("code", OPT_ENUM, "");
  for (const char* const key : {"-1", "-0", "inf", "nan"}) {
    options.add_option(key, OPT_FLOAT, "");
    options.get_option(key)->value.float_value = std::strtof(key, nullptr);
  }
  options.get_option("uint")->value.int_value = -1;
  for (std::size_t i = 0; i < 6; ++i) options.get_option(left_out[i])->is_set = true;
  options.add_option("=", OPT_STR, "");
  std::ostringstream out;
  EXPECT_EQ(write_config(options, out, true), left_out);
  EXPECT_EQ(out.str(), R"(# deprecated
quiet =

## Early

# First line.
#
# Third line.\
mode = p

## Late

#t = true|false

#u = INT

v = -7

#w = FLOAT

x =

#z = p|q
)");
}

TEST(ConfigWriter, FloatsHaveTheFewestDigits) {
  const std::string zeros(44, '0');
  const std::string tiny = "0." + zeros.substr(0, 25);
  const std::pair<std::string, std::string> rows[] = {
      {"000.00", "0"},
      {"00.10000000149011612", "0.1"},
      {"0." + zeros + "14012985", "0." + zeros + "1"},
      // 2^87, below which floats lie closer together. 15474250 reads as the next one down.
      {"154742504910672534362390528", "15474251" + zeros.substr(0, 19)},
      // The second is the float next to the first, but the first's nearest double is half-way.
      {tiny + "7038531", tiny + "7038531"},
      {tiny + "703853069", tiny + "70385307"},
  };
  for (const auto& [text, written] : rows) {
    OptionParser options(BOOL_STYLE_VALUE, false);
    options.add_option("f", OPT_FLOAT, "");
    options.parse_option("f", text, 0);
    std::ostringstream out;
    write_config(options, out, false);
    EXPECT_EQ(out.str(), "f = " + written + "\n");
  }
}

void parse_text(const std::string& text, OptionParser* options) {
  const std::string file_name = testing::TempDir() + "config_writer_test.conf";
  std::ofstream(file_name, std::ios::binary) << text;
  options->parse_config_file(file_name, 0);
}

// The value of an option after reading a file, or "not set".
std::string value_of(const OptionParser& options, const std::string& key) {
  std::string value = "not set";
  options.get_str_option(key, &value);
  return value;
}

TEST(ConfigWriter, WhatIsWrittenIsReadBackAndTheRestIsLeftOut) {
  std::mt19937 random(1);
  const auto random_text = [&random] {
    std::string text(random() % 6, ' ');
    for (char& byte : text) byte = "ab #=\\\n\r\t\x80"[random() % 10];
    return text;
  };
  for (int round = 0; round < 300; ++round) {
    OptionParser written(BOOL_STYLE_VALUE, false);
    OptionParser read(BOOL_STYLE_VALUE, false);
    std::vector<std::string> left_out;
    for (int i = 0; i < 4; ++i) {
      const std::string key = random_text();
      const std::string text = random_text();
      written.set_cur_help_group(random_text());
      if (!written.add_option(key, OPT_STR, random_text())) continue;
      written.parse_option(key, text, 0);
      read.add_option(key, OPT_STR, "");
      // A file can hold the setting if the plain line is read as that and nothing else.
      OptionParser alone(BOOL_STYLE_VALUE, false);
      alone.add_option(key, OPT_STR, "");
      try {
        parse_text(key + " = " + text + "\n", &alone);
      } catch (const Exception&) {
        alone.reset();
      }
      if (value_of(alone, key) != text) left_out.push_back(key);
    }
    std::ostringstream out;
    EXPECT_EQ(write_config(written, out, false), left_out);
    parse_text(out.str(), &read);
    for (const std::string& key : left_out) EXPECT_TRUE(written.del_option(key));
    for (const auto& [key, option] : read.get_options()) {
      EXPECT_EQ(value_of(read, key), value_of(written, key)) << out.str();
    }
  }
}

TEST(ConfigWriter, WritesNothingWhenOutOfMemory) {
  struct Host {
    OptionParser options{BOOL_STYLE_VALUE, false};
    std::ofstream full{"/dev/full"};  // fails when something has been written and is flushed
  };
  const auto make = [] {
    auto host = std::make_unique<Host>();
    host->options.add_option("mode", OPT_STR, std::string(40, 'x'));
    host->options.parse_option("mode", "", 0);
    return host;
  };
  const auto write = [](const auto& host) { write_config(host->options, host->full, false); };
  run_out_of_memory(make, write, [](const auto& host) { EXPECT_TRUE(host->full.flush()); });
  const auto host = make();
  write(host);
  EXPECT_FALSE(host->full);
}

}  // namespace
}  // namespace norq
