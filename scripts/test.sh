#!/usr/bin/env bash
# Builds norq with the address and undefined-behaviour sanitizers and runs every test.
# Arguments go to ctest: `./scripts/test.sh -R ConfigFile`.
set -eu
CDPATH='' cd -- "$(dirname -- "$0")/.."
. scripts/requirements.sh

need_test_tools
# g++ includes the sanitizers' run-time library, clang++ does not.
if command -v "${CXX:-c++}" >/dev/null; then
  need libclang-rt-dev can_link "${CXX:-c++}" -fsanitize=address,undefined
fi
install_needs

build_and_test() {
  echo "== Building the tests in build/test"
  cmake -S . -B build/test -DCMAKE_BUILD_TYPE=Debug -DNORQ_WARNINGS_AS_ERRORS=ON \
    -DCMAKE_CXX_FLAGS="-fsanitize=address,undefined -fno-sanitize-recover=all"
  cmake --build build/test --parallel "$(nproc)"

  echo "== Running the tests"
  cd build/test
  ctest --no-tests=error --output-on-failure --parallel "$(nproc)" "$@"
}
never_silent build_and_test "$@"
