#!/usr/bin/env bash
# Builds norq with the address and undefined-behaviour sanitizers and runs every test.
# Arguments go to ctest: `./scripts/test.sh -R Session.config_file`.
set -eu
CDPATH='' cd -- "$(dirname -- "$0")/.."
. scripts/requirements.sh

need_build_tools
need libgtest-dev has_googletest
need pkgconf command -v pkg-config
# g++ brings the sanitizers' run-time library, clang++ does not.
lacks_sanitizers() {
  mkdir -p build
  command -v "${CXX:-c++}" && ! echo 'int main() {}' |
    "${CXX:-c++}" -fsanitize=address,undefined -x c++ -o build/sanitized -
}
if lacks_sanitizers >/dev/null 2>&1; then need libclang-rt-dev false; fi
install_needs

echo "== Building the tests in build/test"
cmake -S . -B build/test -DCMAKE_BUILD_TYPE=Debug -DNORQ_WARNINGS_AS_ERRORS=ON \
  -DCMAKE_CXX_FLAGS="-fsanitize=address,undefined -fno-sanitize-recover=all"
cmake --build build/test --parallel "$(nproc)"

echo "== Running the tests"
cd build/test
exec ctest --no-tests=error --output-on-failure --parallel "$(nproc)" "$@"
