#!/usr/bin/env bash
# Installs a shared norq, moves it, and builds a program with it by find_package, pkg-config and
# FetchContent. Checks what it exports.
# Usage: check_install.sh SOURCE_FOLDER
set -eu -o pipefail
source=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

run() { "$@" >log 2>&1 || { cat log && exit 1; }; }
build() {
  run cmake -S "$1" -B "$2" -DCMAKE_BUILD_TYPE=None -DBUILD_SHARED_LIBS=ON "${@:3}"
  run cmake --build "$2" --parallel 2
}
try() { diff <(echo 'Hello, Ada!') <("$1" -name=Ada); }
try_with() {
  mkdir "$1"
  printf '%s\n' 'cmake_minimum_required(VERSION 3.16)' 'project(consumer CXX)' "${@:2}" \
    "add_executable(consumer $source/examples/minimal.cc)" \
    'target_link_libraries(consumer norq::norq)' >"$1/CMakeLists.txt"
  build "$1" "$1" -DCMAKE_PREFIX_PATH="$folder/moved"
  try "$1/consumer"
}

build "$source" norq -DNORQ_BUILD_TESTS=OFF -DNORQ_BUILD_EXAMPLES=OFF
run cmake --install norq --prefix installed
mv installed moved
! grep -rI "$folder" moved || exit 1  # names the folder where it was built

try_with find 'find_package(norq 1.0 REQUIRED)'
try_with fetch 'include(FetchContent)' "FetchContent_Declare(norq SOURCE_DIR $source)" \
  'FetchContent_MakeAvailable(norq)'

PKG_CONFIG_PATH=$(dirname "$(find "$folder/moved" -name norq.pc)")
export PKG_CONFIG_PATH
# shellcheck disable=SC2046  # the flags are words
"${CXX:-c++}" -std=c++17 "$source/examples/minimal.cc" $(pkg-config --cflags --libs norq) \
  -Wl,-rpath,"$(pkg-config --variable=libdir norq)" -o by_pkg_config
try ./by_pkg_config

version=$(pkg-config --modversion norq)
library=$(find moved -name "libnorq.so.$version")
objdump -p "$library" | grep "SONAME *libnorq.so.${version%.*}\$"
tools='check_range|exclude_options|explain|get_|is_given|parse_|require_options|set_default|try_|write_'
public="((typeinfo|typeinfo name|vtable) for )?norq::(Exception|Option|OptionParser|hsh|str|$tools)"
! nm -DC --defined-only "$library" | cut -c 20- | grep -vE "^$public" || exit 1
