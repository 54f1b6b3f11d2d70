#!/usr/bin/env bash
# Builds and runs the benchmarks of norq and of the other libraries, which come from Debian's
# packages, and writes docs/benchmarks.md with its chart. Takes about eight minutes.
set -eu
CDPATH='' cd -- "$(dirname -- "$0")/.."
. scripts/requirements.sh

need_build_tools
need libbenchmark-dev has_header benchmark/benchmark.h
need libpopt-dev has_header popt.h
need libcli11-dev has_header CLI/CLI.hpp
need libcxxopts-dev has_header cxxopts.hpp
need libboost-program-options-dev has_header boost/program_options.hpp
need libargs-dev has_header args.hxx
need libtclap-dev has_header tclap/CmdLine.h
need libinih-dev has_header ini.h
need python3
need gnuplot-nox command -v gnuplot
install_needs

echo "== Building the benchmarks in build/bench"
cmake -S . -B build/bench -DCMAKE_BUILD_TYPE=Release -DNORQ_BUILD_BENCHMARKS=ON \
  -DNORQ_BUILD_TESTS=OFF -DNORQ_BUILD_EXAMPLES=OFF -DNORQ_WARNINGS_AS_ERRORS=ON
cmake --build build/bench --parallel "$(nproc)"

cd build/bench
echo "== Measuring build costs"
../../bench/build_cost.sh libnorq.a cost >cost.csv
echo "== Running the benchmarks"
bench/norq_benchmarks --benchmark_format=json --benchmark_min_time=0.02 \
  --benchmark_repetitions=7 --benchmark_enable_random_interleaving=true >benchmarks.json

echo "== Writing docs/benchmarks.md and docs/cycle.svg"
mkdir -p ../../docs
processor=$(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -n 1)
machine="$processor, $(nproc) cores, $(uname -s), $("${CXX:-c++}" --version | head -n 1)"
python3 ../../bench/report.py benchmarks.json cost.csv "$machine" ../../docs/benchmarks.md cycle.dat
gnuplot ../../bench/cycle.gp >../../docs/cycle.svg
