#!/usr/bin/env bash
# Builds norq, its examples and tests with other compilers, standard libraries and word sizes,
# without language extensions, and runs the tests. GoogleTest and other libraries are built for one
# standard library and word size, so tests that need them are skipped.
set -eu -o pipefail
CDPATH='' cd -- "$(dirname -- "$0")/.."
. scripts/requirements.sh

has_m32() { echo '#include <string>' | g++ -m32 -E -x c++ -; }
export CXX=g++
need_build_tools
need clang command -v clang++
# Linking needs both.
need libc++-dev can_link clang++ -stdlib=libc++
need libc++abi-dev can_link clang++ -stdlib=libc++
need pkgconf command -v pkg-config
# Only amd64 supports another word size.
if [ "$(uname -m)" = x86_64 ]; then need g++-multilib has_m32; fi
install_needs

# try NAME COMPILER FLAGS
try() {
  echo "== $1: $2 $3"
  cmake -S . -B "build/$1" -DCMAKE_CXX_COMPILER="$2" -DNORQ_TEST_WITH_OTHERS=OFF \
    -DNORQ_WARNINGS_AS_ERRORS=ON -DCMAKE_CXX_FLAGS="-pedantic-errors $3" >/dev/null
  cmake --build "build/$1" --parallel "$(nproc)"
  (cd "build/$1" && ctest --no-tests=error --output-on-failure --parallel "$(nproc)" \
    --exclude-regex Install)
}
try libcxx clang++ -stdlib=libc++
try cxx20 clang++ -std=c++20
try unsigned-char g++ -funsigned-char
if has_m32 >/dev/null 2>&1; then try m32 g++ -m32; fi
