#!/usr/bin/env bash
# Builds the fuzz targets with clang++ and the address and undefined-behaviour sanitizers and runs
# each for the given number of seconds (60 by default): `./scripts/fuzz.sh 1200`. One target runs on
# each core. Faults and the growing corpora are written to build/fuzz.
set -eu
CDPATH='' cd -- "$(dirname -- "$0")/.."
seconds=${1:-60}
case $seconds in *[!0-9]*) echo "usage: fuzz.sh [SECONDS]" >&2 && exit 2 ;; esac
targets=(parser)
. scripts/requirements.sh

need_build_tools
need clang command -v clang++
need libclang-rt-dev can_link clang++ -fsanitize=address,undefined
install_needs

echo "== Building the fuzz targets in build/fuzz"
sanitizers=address,undefined
cmake -S . -B build/fuzz -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DNORQ_LIBFUZZER=ON -DNORQ_TEST_WITH_OTHERS=OFF -DNORQ_BUILD_EXAMPLES=OFF \
  -DNORQ_WARNINGS_AS_ERRORS=ON \
  -DCMAKE_CXX_FLAGS="-fsanitize=$sanitizers,fuzzer-no-link -fno-sanitize-recover=all"
cmake --build build/fuzz --parallel "$(nproc)" \
  --target "${targets[@]/#/fuzz_}"

fuzz() {
  mkdir -p "corpus/$1"
  if ! "fuzz/fuzz_$1" "corpus/$1" -max_total_time="$seconds" -max_len=3000 -len_control=0 \
    -timeout=20 -print_final_stats=1 -artifact_prefix="$1-" >"$1.log" 2>&1; then
    tail -n 40 "$1.log"
    return 1
  fi
  echo "$1: $(sed -n 's/^stat::number_of_executed_units: *//p' "$1.log") executions in" \
    "$seconds seconds, no fault"
}
cd build/fuzz
export seconds
export -f fuzz
echo "== Fuzzing"
# shellcheck disable=SC2016  # the inner shell expands $0
printf '%s\n' "${targets[@]}" |
  xargs -n 1 -P "$(nproc)" bash -c 'fuzz "$0"'
