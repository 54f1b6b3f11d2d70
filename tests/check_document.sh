#!/usr/bin/env bash
# Builds the programs that a document shows, runs the commands ("$ ...") of its console blocks in
# FOLDER, and compares what they print with what it shows. A block that starts with a comment naming
# a file is that file. Blocks marked with another library ("```cpp cxxopts") need its header.
# Usage: check_document.sh DOCUMENT FOLDER COMPILER FLAG...
set -u
mkdir -p "$2" && cd "$2" || exit 1
PATH=$PWD:$PATH

sources=$(awk '
  /^```/ { inside = !inside; mark = $2; first = inside; file = ""; next }
  first && /^(\/\/|#) [a-z0-9_]+\.[a-z]+$/ { file = $2; printf "" >file }
  first && file ~ /\.cc$/ { print file, mark }
  { first = 0 }
  file != "" { print >file }' "$1")
programs=()
installed=
while read -r source mark; do
  [ -n "$source" ] || continue
  [ -z "$mark" ] || "$3" -E "$source" >/dev/null 2>&1 || continue
  programs+=("${source%.cc}")
  installed="$installed $mark "
done <<<"$sources"
if [ ${#programs[@]} -gt 0 ]; then
  printf '%s\n' "${programs[@]}" | xargs -P 2 -I {} "$3" {}.cc "${@:4}" -o {} || exit 1
fi

shown=$(awk -v installed="$installed" '
  /^```/ { shown = $1 == "```console" && ($2 == "" || index(installed, " " $2 " ")); next }
  shown' "$1")
[ -n "$shown" ] || exit 1
printed=$(grep '^\$ ' <<<"$shown" | while IFS= read -r command; do
  printf '%s\n' "$command"
  eval "${command#\$ }" 2>&1 </dev/null
done)
diff -u --label "$1" <(printf '%s\n' "$shown") --label printed <(printf '%s\n' "$printed")
