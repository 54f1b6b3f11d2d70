#!/usr/bin/env bash
# Builds norq and its example wordfreq, and shows what they do.
set -eu
CDPATH='' cd -- "$(dirname -- "$0")/.."
. scripts/requirements.sh

need_build_tools
install_needs

echo "== Building a release in build/demo"
cmake -S . -B build/demo -DCMAKE_BUILD_TYPE=Release -DNORQ_WARNINGS_AS_ERRORS=ON \
  -DNORQ_BUILD_TESTS=OFF
cmake --build build/demo --parallel "$(nproc)"

PATH=$PWD/build/demo/examples:$PATH
cd examples/data

show() {
  printf '\n== %s\n$ %s\n' "$1" "$2"
  eval "$2" 2>&1
}

show "The configuration file of the example" "cat wordfreq.conf"
show "The most frequent words of a text, with these settings" \
  "wordfreq -config=wordfreq.conf harbour.txt"
show "The command line overrides the file: only three words; The and the are different words" \
  "wordfreq -config=wordfreq.conf -top=3 -no_fold_case harbour.txt"
show "The help, by group" "wordfreq -help"
show "An error names the option, the value and the argument, and says what is accepted" \
  'wordfreq -top=many harbour.txt || echo "(exit status $?)"'
show "For an unknown name, norq suggests the most similar one" \
  'wordfreq --fold_csae harbour.txt || echo "(exit status $?)"'
show "An error in a configuration file names the line" \
  'echo "fold_case = maybe" | wordfreq -config=/dev/stdin || echo "(exit status $?)"'
show "The combined settings as a configuration file" \
  'wordfreq -config=wordfreq.conf -top=3 -write_config | tail -n 5'
