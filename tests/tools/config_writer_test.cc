#include "norq/tools/config_writer.h"

#include <cstdlib>
#include <fstream>
#include <map>
#include <random>
#include <sstream>

#include "../support.h"

namespace norq {
namespace {

TEST(ConfigWriter, WritesForReadersAndLeavesOutWhatNoFileCanHold) {
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
  const std::vector<std::string> left_out = {"uint", "code", "-1", "-0", "inf", "nan"};
  for (const std::string& key : left_out) {
    options.add_option(key, key == "uint" ? OPT_UINT : key == "code" ? OPT_ENUM : OPT_FLOAT, "");
    options.get_option(key)->value.float_value = std::strtof(key.c_str(), nullptr);
    options.get_option(key)->is_set = true;
  }
  options.get_option("uint")->value.int_value = -1;
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

// Reads a file into new string options: what they are then set to, or nothing if it is refused.
std::map<std::string, std::string> read(const std::string& text,
                                        const std::vector<std::string>& keys) {
  const std::string file_name = testing::TempDir() + "config_writer_test.conf";
  std::ofstream(file_name, std::ios::binary) << text;
  OptionParser options(BOOL_STYLE_VALUE, false);
  for (const std::string& key : keys) options.add_option(key, OPT_STR, "");
  std::map<std::string, std::string> values;
  try {
    options.parse_config_file(file_name, 0);
    for (const std::string& key : keys) {
      std::string value;
      if (options.get_str_option(key, &value)) values[key] = value;
    }
  } catch (const Exception&) {
  }
  return values;
}

TEST(ConfigWriter, WhatIsWrittenIsReadBackAndTheRestIsLeftOut) {
  std::mt19937 random(1);
  const auto random_text = [&random] {
    std::string text(random() % 6, ' ');
    for (char& byte : text) byte = "ab #=\\\n\r\t\x80"[random() % 10];
    return text;
  };
  for (int round = 0; round < 100; ++round) {
    OptionParser options(BOOL_STYLE_VALUE, false);
    std::vector<std::string> keys;
    std::vector<std::string> left_out;
    std::map<std::string, std::string> values;
    for (int i = 0; i < 4; ++i) {
      const std::string key = random_text();
      const std::string text = random_text();
      options.set_cur_help_group(random_text());
      if (!options.add_option(key, OPT_STR, random_text())) continue;
      options.parse_option(key, text, 0);
      keys.push_back(key);
      // A file can hold the setting if its plain line is read as the setting.
      const auto alone = read(key + " = " + text + "\n", {key});
      const std::map<std::string, std::string> setting = {{key, text}};
      if (alone == setting) values[key] = text;
      if (alone != setting) left_out.push_back(key);
    }
    std::ostringstream out;
    EXPECT_EQ(write_config(options, out, false), left_out);
    EXPECT_EQ(read(out.str(), keys), values) << out.str();
  }
}

TEST(ConfigWriter, WritesNothingWhenOutOfMemory) {
  struct Host {
    OptionParser options{BOOL_STYLE_VALUE, false};
    std::ofstream full{"/dev/full"};  // fails when something has been written and is flushed
  };
  const auto make = [] {
    auto host = std::make_unique<Host>();
    host->options.add_option("flag", OPT_FLAG, std::string(40, 'x'));
    host->options.parse_option("flag", "", 0);
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
