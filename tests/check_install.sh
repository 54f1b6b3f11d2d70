#!/usr/bin/env bash
# Installs norq, moves it, and builds a program with it by find_package, pkg-config,
# add_subdirectory and FetchContent. Checks what a shared norq exports.
# Usage: check_install.sh SOURCE_FOLDER static|shared
set -eu -o pipefail
source=$1
shared=$([ "$2" = shared ] && echo ON || echo OFF)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

run() { "$@" >log 2>&1 || { cat log && exit 1; }; }
build() {
  run cmake -B "$1" -DCMAKE_BUILD_TYPE=None -DBUILD_SHARED_LIBS="$shared" "${@:2}"
  run cmake --build "$1" --parallel 2
}
try() { diff <(echo 'Hello, Ada!') <("$1" -name=Ada); }

build norq -S "$source" -DNORQ_BUILD_TESTS=OFF -DNORQ_BUILD_EXAMPLES=OFF
run cmake --install norq --prefix installed
mv installed moved
ls moved/include/norq/options/option_parser.h moved/share/doc/norq/LICENSE
! grep -rI "$folder" moved || exit 1  # names the folder where it was built

for way in find subdirectory fetch; do
  build "$way" -S "$source/tests/consumer" -DNORQ_BY="$way" -DNORQ_SOURCE="$source" \
    -DCMAKE_PREFIX_PATH="$folder/moved" -DNORQ_PROGRAM="$source/examples/minimal.cc"
  try "$way/consumer"
done
! find fetch -name 'fuzz_*' | grep . || exit 1  # builds norq's own programs

PKG_CONFIG_PATH=$(dirname "$(find "$folder/moved" -name norq.pc)")
export PKG_CONFIG_PATH
# shellcheck disable=SC2046  # the flags are words
"${CXX:-c++}" -std=c++17 "$source/examples/minimal.cc" $(pkg-config --cflags --libs norq) \
  -Wl,-rpath,"$(pkg-config --variable=libdir norq)" -o by_pkg_config
try ./by_pkg_config

[ "$shared" = ON ] || exit 0
version=$(pkg-config --modversion norq)
library=$(find moved -name "libnorq.so.$version")
objdump -p "$library" | grep "SONAME *libnorq.so.${version%.*}\$"
tools='check_range|exclude_options|explain|get_|is_given|parse_|require_options|set_default|try_|write_'
public="((typeinfo|typeinfo name|vtable) for )?norq::(Exception|Option|OptionParser|hsh|str|$tools)"
! nm -DC --defined-only "$library" | cut -c 20- | grep -vE "^$public" || exit 1
