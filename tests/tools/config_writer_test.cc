#include "norq/tools/config_writer.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

#include "../support.h"

namespace norq {

TEST(ConfigWriter, WritesReadableFilesAndLeavesOutWhatTheyCannotHold) {
  SampleParser options(BOOL_STYLE_PLUS_MINUS);
  for (const char* const group : {"Late", "Early"}) options.set_cur_help_group(group);
  options.add_option("shade", "c", OPT_ENUM, "First line.\n\nThird line.\\\n");
  options.set_cur_help_group("Late");
  options.add_option("limit", OPT_INT, "");
  for (const char* const name : {"red", "\n", "blue"}) options.add_enum_value("shade", name, 1, "");
  for (const char* const name : {"\n", "full"}) options.add_enum_value("mode", name, 1, "");
  for (const char* const key : {"dump", "out"}) options.parse_option(key, "", 0);
  options.parse_option("shade", "red", 0);
  options.parse_option("limit", "-007", 0);
  options.parse_option("verbose", "true", 0);
  options.parse_option("ratio", "00.10000000149011612", 0);
  // 2^87, below which floats lie closer together. 15474250... is read as the next smaller float.
  options.add_option("large", OPT_FLOAT, "");
  options.parse_option("large", "154742504910672534362390528", 0);
  const Strings left_out = {"uint", "code", "-1", "-0", "inf", "nan"};
  for (const std::string& key : left_out) {
    options.add_option(key, key == "uint" ? OPT_UINT : key == "code" ? OPT_ENUM : OPT_FLOAT, "");
    options.get_option(key)->value.float_value = std::strtof(key.c_str(), nullptr);
    options.get_option(key)->is_set = true;
  }
  options.get_option("uint")->value.int_value = -1;
  std::ostringstream out;
  EXPECT_EQ(write_config(options, out, true), left_out);
  EXPECT_EQ(out.str(), R"(verbose = true

#size = INT

#count = INT

ratio = 0.1

out =

dump =

#mode = fast|full

## Early

# First line.
#
# Third line.\
shade = blue

## Late

limit = -7

large = 154742510000000000000000000
)");
}

// What a file sets in a parser with this string option.
std::string read(const std::string& text, const std::string& key) {
  const std::string path = testing::TempDir() + "config_writer-" + std::to_string(getpid());
  std::ofstream(path) << text;
  OptionParser options(BOOL_STYLE_VALUE, false);
  options.add_option(key, OPT_STR, "");
  const std::string outcome = outcome_of(options, [&] { options.parse_config_file(path, 0); });
  std::remove(path.c_str());
  return outcome;
}

TEST(ConfigWriter, WhatIsWrittenIsReadBackAndTheRestIsLeftOut) {
  std::mt19937 random(1);
  const auto random_text = [&random] {
    std::string text(random() % 6, ' ');
    for (char& byte : text) byte = "ab #=\\\n\r\t\x80"[random() % 10];
    return text;
  };
  for (int round = 0; round < 400; ++round) {
    const std::string key = random_text();
    const std::string text = random_text();
    OptionParser options(BOOL_STYLE_VALUE, false);
    options.set_cur_help_group(random_text());
    options.add_option(key, OPT_STR, random_text());
    options.parse_option(key, text, 0);
    // A file can hold a setting if reading it as a plain line gives the same setting.
    const std::string setting = key + " = " + text;
    const bool is_storable = read(setting + "\n", key) == setting;
    std::ostringstream out;
    EXPECT_EQ(write_config(options, out, false), is_storable ? Strings() : Strings{key});
    EXPECT_EQ(read(out.str(), key), is_storable ? setting : "") << out.str();
  }
}

}  // namespace norq
