#!/usr/bin/env bash
# Plays the commands of a transcript, its lines that start with "> ", and compares what they print
# with the lines between them. Lines that start with "# " are comments; what an editor would not
# show is written as in C, a space at the end of a line as \s.
# Usage: check_session.sh PLAYER TRANSCRIPT [starved], see play.cc.
set -eu -o pipefail
export LC_ALL=C
grep '^> ' "$2" | "$1" ${3:+"$3"} | tail -n +2 |
  sed 's/ $/\\s/; s/\t/\\t/g; s/\r/\\r/g; s/\v/\\v/g; s/\f/\\f/g' |
  diff --text <(grep -v '^# ' "$2") -
