#!/usr/bin/env bash
# Runs the commands ("$ ...") in the console blocks of a document and compares all that they print
# with what the document shows. With MARK, the blocks are those marked with it ("```console MARK").
# usage: check_console.sh DOCUMENT [MARK]
set -u
fence='```console'${2:+ $2}
shown=$(awk -v fence="$fence" '/^```/ { inside = ($0 == fence); next } inside' "$1")
printed=$(
  while IFS= read -r line; do
    if [ "${line#\$ }" != "$line" ]; then
      printf '%s\n' "$line"
      eval "${line#\$ }" 2>&1 </dev/null
    fi
  done <<<"$shown"
)
if [ -z "$printed" ]; then
  echo "$1 shows no commands" >&2
  exit 1
fi
diff -u --label "$1 shows" <(printf '%s\n' "$shown") --label "printed" <(printf '%s\n' "$printed")
