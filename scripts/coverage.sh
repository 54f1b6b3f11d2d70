#!/usr/bin/env bash
# Measures how much of include/ and src/ the tests cover, prints it for each file, and fails below
# 98 % of the lines or 95 % of the branches. Branches that exist only for exceptions do not count.
# build/coverage/index.html shows each line and branch.
set -eu
CDPATH='' cd -- "$(dirname -- "$0")/.."
. scripts/requirements.sh

export CXX=g++
need_test_tools
need gcovr
install_needs

echo "== Building the tests in build/coverage"
rm -rf build/coverage  # counts from an older build would not match
# Inlined code would be counted where it was inlined.
cmake -S . -B build/coverage -DCMAKE_BUILD_TYPE=Debug -DNORQ_WARNINGS_AS_ERRORS=ON \
  -DNORQ_BUILD_EXAMPLES=OFF \
  -DCMAKE_CXX_FLAGS="--coverage -O0 -fno-inline"
cmake --build build/coverage --parallel "$(nproc)"

echo "== Running the tests"
(cd build/coverage && ctest --no-tests=error --output-on-failure --label-exclude slow --parallel "$(nproc)")

echo "== Coverage"
# On a line without a condition, all branches are for exceptions.
unconditional='^(?!.*(\bif\b|\bfor\b|\bwhile\b|\bswitch\b|\?|&&|\|\|)).*$'
gcovr --root . --filter include/ --filter src/ --exclude-throw-branches \
  --exclude-unreachable-branches --exclude-branches-by-pattern "$unconditional" --txt build/coverage/lines.txt \
  --html-details build/coverage/index.html --print-summary \
  --fail-under-line 98 --fail-under-branch 95 build/coverage && status=0 || status=$?
cat build/coverage/lines.txt
exit "$status"
