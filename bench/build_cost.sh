#!/usr/bin/env bash
# Measures what each library costs a program that uses it. Prints lines "compile,LIBRARY,SECONDS"
# (for one file, the median of nine) and "size,PROGRAM,BYTES" (for the smallest program that uses
# norq).
# usage: build_cost.sh LIBNORQ WORK_DIRECTORY
set -eu
export LC_ALL=C  # so that numbers have decimal points
root=$(cd "$(dirname "$0")/.." && pwd)
library=$1
work=$2
mkdir -p "$work"

compile() { c++ -std=c++17 -O2 -I"$root/include" -c "$work/$1.cc" -o "$work/$1.o"; }

names=()
write_source() {  # NAME, HEADERS, BODY
  { printf '#include <%s>\n' $2; printf 'int main(int argc, char** argv) { %s }\n' "$3"; } >"$work/$1.cc"
  compile "$1"
  names+=("$1")
}
std='string vector map sstream'
write_source std "$std" 'std::ostringstream out; out << std::string(argv[argc - 1]); std::map<std::string, std::vector<int>> map; map[out.str()].push_back(argc); return static_cast<int>(map.size());'
write_source norq 'norq/options/option_parser.h' 'norq::OptionParser p(norq::BOOL_STYLE_NO_PREFIX, false); p.add_option("count", norq::OPT_INT, "How many."); p.add_option("name", norq::OPT_STR, "Whose."); p.add_option("quiet", norq::OPT_BOOL, "Whether to be quiet."); std::vector<std::string> rest; p.parse_args(argc, argv, rest, 0); int count = 0; p.get_int_option("count", &count); return count;'
write_source CLI11 'CLI/CLI.hpp' 'CLI::App p; int count = 0; std::string name; bool quiet; p.add_option("--count", count); p.add_option("--name", name); p.add_flag("--quiet", quiet); CLI11_PARSE(p, argc, argv); return count;'
write_source cxxopts 'cxxopts.hpp' 'cxxopts::Options p("p"); p.add_options()("count", "", cxxopts::value<int>())("name", "", cxxopts::value<std::string>())("quiet", "", cxxopts::value<bool>()); return p.parse(argc, argv)["count"].as<int>();'
write_source args 'args.hxx' 'args::ArgumentParser p(""); args::ValueFlag<int> count(p, "", "", {"count"}); args::ValueFlag<std::string> name(p, "", "", {"name"}); args::Flag quiet(p, "", "", {"quiet"}); p.ParseCLI(argc, argv); return args::get(count);'
write_source TCLAP 'tclap/CmdLine.h' 'TCLAP::CmdLine p("p"); TCLAP::ValueArg<int> count("", "count", "", false, 0, "n", p); TCLAP::ValueArg<std::string> name("", "name", "", false, "", "s", p); TCLAP::SwitchArg quiet("", "quiet", "", p); p.parse(argc, argv); return count.getValue();'
write_source Boost.Program_options 'boost/program_options.hpp' 'namespace po = boost::program_options; po::options_description d; d.add_options()("count", po::value<int>(), "")("name", po::value<std::string>(), "")("quiet", po::bool_switch(), ""); po::variables_map m; po::store(po::parse_command_line(argc, argv, d), m); return m["count"].as<int>();'

# Takes turns, so that all compile under the same conditions.
TIMEFORMAT=%U
for round in 1 2 3 4 5 6 7 8 9; do
  for name in "${names[@]}"; do echo "$name $({ time compile "$name"; } 2>&1)"; done
done | sort -k 1,1 -k 2,2n | awk '{ time[$1, ++count[$1]] = $2 } END { for (n in count) print "compile," n "," time[n, 5] }'

c++ -Os -s "$work/norq.o" "$library" -o "$work/host"
c++ -Os -s -Wl,--gc-sections "$work/norq.o" "$library" -o "$work/host-gc-sections"
(cd "$work" && stat -c 'size,%n,%s' host host-gc-sections)
