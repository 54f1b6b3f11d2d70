#!/usr/bin/env bash
# Checks what documents say of scripts and tests without showing what they print: each script is
# there, and each pattern for `./scripts/test.sh` or ctest finds some of the tests that are run.
# Usage: check_commands.sh SOURCE_FOLDER BUILD_FOLDER DOCUMENT...
set -eu -o pipefail
cd "$1"
build=$2
shift 2
commands=$(grep -ohE '(\./scripts/[a-z]+\.sh|\.ci/run)|-R [A-Za-z_.]+' "$@" | sort -u)
failed=0
while read -r command pattern; do
  if [ "$command" != -R ]; then
    [ -x "$command" ] || { echo "no such command: $command" && failed=1; }
  elif [ "$pattern" != PATTERN ] &&
    ! ctest --test-dir "$build" -N -R "$pattern" | grep -x 'Total Tests: [1-9].*' >/dev/null; then
    echo "no test: $pattern" && failed=1
  fi
done <<<"$commands"
exit "$failed"
