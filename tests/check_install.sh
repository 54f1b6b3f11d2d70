#!/usr/bin/env bash
# Installs norq, moves what was installed to another place, and builds a program with it in each of
# the ways that there are: find_package, pkg-config, add_subdirectory, FetchContent. What the README
# says about it is taken from there.
# Usage: check_install.sh SOURCE_FOLDER static|shared
set -eu
source=$1
program=$source/examples/minimal.cc
shared=$([ "$2" = shared ] && echo ON || echo OFF)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export CMAKE_GENERATOR='Unix Makefiles'  # whose list of targets is read below
export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}

configure() {
  cmake -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS="$shared" -DNORQ_PROGRAM="$program" "$@" \
    >log 2>&1 || fail
}
build() { cmake --build "$1" >log 2>&1 || fail; }
fail() {
  cat log
  exit 1
}
# try WAY PROGRAM
try() {
  diff <(echo 'Hello, Ada!' && echo 'unknown option: x, value: , command-line: -x') \
    <("$2" -name=Ada && "$2" -x 2>&1) || exit 1
  echo "ok: $1, $shared"
}

# block LANGUAGE: what the README shows about using norq
block() {
  sed -n '/^## Using it/,/^## /p' "$source/README.md" | sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/p" | grep -v '^`'
}

mkdir -p host/norq
tar -C "$source" --exclude=./build --exclude=./.git -cf norq.tar .
tar -C host/norq -xf norq.tar
block sh | sed "s/cmake -S/cmake -DBUILD_SHARED_LIBS=$shared -S/" >install.sh
(cd host/norq && HOME=$folder bash -eu ../../install.sh) >log 2>&1 || fail
mv .local moved
for file in include/norq/options/option_parser.h share/doc/norq/LICENSE; do
  [ -e "moved/$file" ] || { echo "not installed: $file" && exit 1; }
done
if grep -rI "$folder" moved; then
  echo "names the place where it was made"
  exit 1
fi

configure -S "$source/tests/consumer" -B find -DNORQ_BY=find -DCMAKE_PREFIX_PATH="$folder/moved"
build find
try "find_package" find/consumer
sed 's/norq 1.0 REQUIRED/norq 2.0 REQUIRED/' "$source/tests/consumer/CMakeLists.txt" >CMakeLists.txt
if cmake -S . -B newer -DNORQ_BY=find -DNORQ_PROGRAM="$program" -DCMAKE_PREFIX_PATH="$folder/moved" >log 2>&1; then
  echo "passes for a version 2.0"
  exit 1
fi
grep -q 'requested version "2.0"' log || fail

PKG_CONFIG_PATH=$(dirname "$(find "$folder/moved" -name norq.pc)")
export PKG_CONFIG_PATH
# The words that it prints are meant to be split.
# shellcheck disable=SC2046
"${CXX:-c++}" -std=c++17 "$program" $(pkg-config --cflags --libs norq) \
  -Wl,-rpath,"$(pkg-config --variable=libdir norq)" -o by_pkg_config
try "pkg-config" ./by_pkg_config
version=$(sed -n 's/^#define NORQ_VERSION_.* //p' "$source/include/norq/version.h" | paste -sd .)
[ "$(pkg-config --modversion norq)" = "$version" ] || { echo "another version" && exit 1; }

(echo 'cmake_minimum_required(VERSION 3.16)' && echo 'project(host CXX)' && block cmake) >host/CMakeLists.txt
cp "$program" host/greet.cc
configure -S host -B sub
build sub
try "add_subdirectory" sub/greet
configure -S "$source/tests/consumer" -B fetch -DNORQ_BY=fetch -DNORQ_SOURCE="$folder/norq.tar"
build fetch
try "FetchContent" fetch/consumer

for way in sub fetch; do
  targets=$(cmake --build "$way" --target help | sed -n 's/^\.\.\. //p' | grep -v '\.\(i\|s\|o\)$' |
    grep -vx 'all.*\|clean\|depend\|edit_cache\|rebuild_cache\|consumer\|greet\|norq\|install.*\|list.*' || true)
  [ -z "$targets" ] || { echo "brings targets of its own: $targets" && exit 1; }
done

if [ "$shared" = ON ]; then
  library=$(find moved -name 'libnorq.so.*.*.*')
  objdump -p "$library" | grep -q "SONAME *libnorq.so.${version%.*}\$" ||
    { echo "wrong soname" && exit 1; }
  nm -DC --defined-only "$library" | cut -c 20- |
    grep -vE '^((typeinfo|typeinfo name|vtable) for )?norq::(Exception|Option|OptionParser|hsh|str)\b' \
      >not_public || true
  [ ! -s not_public ] || { echo "exports what is not public:" && cat not_public && exit 1; }
  echo "ok: soname and symbols"
fi
