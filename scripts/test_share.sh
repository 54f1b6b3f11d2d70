#!/usr/bin/env bash
# Prints the share of tests in the code: the number of non-blank lines in tests/ and fuzz/, divided
# by the number in include/, src/, tests/ and fuzz/. Fails unless the share is more than a quarter
# and at most a third.
set -eu
CDPATH='' cd -- "$(dirname -- "$0")/.."

lines() { find "$@" -type f -exec cat {} + | grep -cv '^[[:space:]]*$'; }
library=$(lines include src)
tests=$(lines tests fuzz)
all=$((library + tests))
echo "Tests: $tests of $all lines, $((100 * tests / all)) %"
[ $((4 * tests)) -gt "$all" ] && [ $((3 * tests)) -le "$all" ]
