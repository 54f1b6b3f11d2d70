#!/usr/bin/env bash
# Builds the programs that a document shows, runs the commands ("$ ...") of its console blocks, and
# compares what they print with what it shows. A block that starts with a comment naming a file is
# that file. The files of examples/data are also available.
# Usage: check_document.sh DOCUMENT COMPILER FLAG...
set -u
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp "${0%/*}"/../examples/data/* "$folder" && cd "$folder" || exit 1
PATH=$PWD:$PATH

programs=$(awk '
  /^```/ { first = inside = !inside; file = ""; next }
  first && /^(\/\/|#) [a-z0-9_]+\.[a-z]+$/ { file = $2; printf "" >file }
  first && sub(/\.cc$/, "", $2) { print $2 }
  { first = 0 }
  file != "" { print >file }' "$1")
xargs -P 2 -I {} "$2" {}.cc "${@:3}" -o {} <<<"$programs" || exit 1

shown=$(awk '/^```/ { shown = $0 == "```console"; next } shown' "$1")
printed=$(grep '^\$ ' <<<"$shown" | while IFS= read -r command; do
  printf '%s\n' "$command"
  eval "${command#\$ }" 2>&1 </dev/null
done)
diff -u --label "$1" <(printf '%s\n' "$shown") --label printed <(printf '%s\n' "$printed")
