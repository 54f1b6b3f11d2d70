#!/usr/bin/env bash
# Feeds the player (tests/play.cc) with what strangers may write: input that is huge, odd or changes
# under the reader's hands. Usage: hostile_input.sh PLAYER HOST, the latter the README's program,
# which has no diagnostic hook of its own. Every case has a minute, which nothing that takes time in
# proportion to its input needs, and nothing that takes its square keeps.
set -eu
shopt -s lastpipe  # `expect` runs behind pipes and counts the failures
player=$1
host=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
failures=0
environment=(LC_ALL=C)

# expect TITLE: compares what the commands on standard input print with the file "expected".
expect() {
  (echo "${decimal_point:-.}" && cat expected) >whole
  if env "${environment[@]}" timeout 60 "$player" >printed 2>&1 && cmp printed whole; then
    echo "ok: $1"
  else
    echo "FAILED: $1"
    diff <(cut -c 1-300 whole) <(cut -c 1-300 printed) | head -n 10 || true
    failures=$((failures + 1))
  fi
}
# megabytes COUNT LETTER
megabytes() { head -c "$1"000000 /dev/zero | tr '\0' "$2"; }
megabytes 64 x >long

echo "64 megabytes"
(printf 'out = ' && cat long) >long_value
(printf 'kept: out str ' && cat long && printf ' set; \nout str ' && cat long && echo ' set; ') >expected
(printf 'sample 0\nargs 0 -out=' && cat long && printf '\npath 0 long_value\n') |
  expect "a value, by argument and by file"
(printf 'kept: unknown option: ' && cat long && printf ', value: , command-line: -' && cat long &&
  printf '\n\ninvalid line 1 in config file: long\n\n') >expected
(printf 'sample 0\nargs 0 -' && cat long && printf '\npath 0 long\n') |
  expect "a name, and a line without an equals sign"
megabytes 64 7 >digits
(printf '\nint 2147483647 set\n') >expected
(printf 'sample 0\nset count ' && cat digits && printf ' 0\nread count\n') | expect "a number"
(yes '\' | head -n 10000000 && echo 'count = 3') >continued
(printf 'count int 3 set; \n') >expected
(printf 'sample 0\npath 0 continued\n') | expect "lines that go on"
(printf 'true\n -n \n    ' && cat long && printf ' \n    a \n') >expected
(printf 'new 0\nadd n 5 ' && cat long && printf '\\sa\nhelp 1 1\n') |
  expect "a help text with a word of that length"
(printf 'true\n -n %76s\n' '' && yes "$(printf %80s '')" | head -n 99999) >expected
(printf 'new 0\nadd n 5 ' && printf %7599999s '' | sed 's/ /\\s/g' && printf '\nhelp 1 1\n') |
  expect "a help text of blanks"

echo "100000"
(printf 'kept: count int 7 set; ' && seq 1 100000 | sed 's/.*/[&]/' | tr -d '\n' && echo) >expected
(printf 'sample 0\nargs 0' && seq 1 100000 | sed 's/.*/ -count=7 &/' | tr -d '\n' && echo) |
  expect "arguments for one option, and as many plain ones"
(yes true | head -n 100000 && printf 'kept: ' && seq 1 100000 | LC_ALL=C sort | sed 's/.*/& set; /' |
  tr -d '\n' && echo) >expected
(printf 'new 0\n' && seq 1 100000 | sed 's/.*/add & 5/' && printf 'args 0' &&
  seq 1 100000 | sed 's/.*/ -&/' | tr -d '\n' && echo) | expect "options, and an argument for each"

echo "Odd keys, values and names"
# Two letters that hash alike stand for a binary digit.
awk 'BEGIN {
  for (n = 0; n < 2048; ++n) {
    key = ""
    for (bit = 1; bit < 2048; bit *= 2) key = key (int(n / bit) % 2 ? "af" : "ba")
    print "add " key " 2\nset " key " " n " 0" >"commands"
    print "true\n" >"expected"
    reads = reads "read " key "\n"
    values = values "int " n " set\n"
  }
  printf "%s", reads >"commands"
  printf "%s", values >"expected"
}'
(echo 'new 0' && cat commands) | expect "2048 keys with one hash"
raw() { for byte in $(seq 1 255); do printf "\\$(printf %03o "$byte")"; done; }
(printf 'kept: out str ' && raw && echo ' set; ') >expected
(printf 'sample 0\nargs 0 -out=' && raw | sed 's/\\/\\\\/; s/ /\\s/' | sed -z 's/\n/\\n/' && echo) |
  expect "a value of all bytes"
odd='no such%s%n
file'
printf 'unable to open config file: %s\n\n' "$odd" >expected
printf 'sample 0\npath 0 no\\ssuch%%s%%n\\nfile\n' | expect "a missing file with an odd name"
echo 'nothing' >"$odd"
printf 'invalid line 1 in config file: %s\n\n' "$odd" >expected
printf 'sample 0\npath 0 no\\ssuch%%s%%n\\nfile\n' | expect "a refused file with an odd name"

printf 'unknown option: %s, value: =\377, command-line: -%s==\377\nstatus 2\n' "$odd" "$odd" >whole
if { "$host" "-$odd=="$'\377' || echo "status $?"; } 2>&1 | cmp - whole; then
  echo "ok: a host without a hook"
else
  echo "FAILED: a host without a hook"
  failures=$((failures + 1))
fi

echo "Files that are none, or do not stay"
mkfifo fifo
timeout 60 sh -c "printf 'count = 3\\n' >fifo" &
printf 'count int 3 set; \ncount int 3 set; \n' >expected
printf 'sample 0\npath 0 fifo\npath 0 .\n' | expect "a FIFO and a directory"
yes 'count = 4' | head -n 400000 >growing
(for _ in $(seq 1 50); do sleep 0.01 && echo 'count = 4' >>growing; done) &
mkfifo vanishing
(exec 3>vanishing && rm vanishing && echo 'count = 5' >&3) &  # opens when the reader does
writer=$!
printf 'count int 4 set; \ncount int 5 set; \n' >expected
printf 'sample 0\npath 0 growing\npath 0 vanishing\n' | expect "a file that grows and one that goes"
kill "$writer" 2>/dev/null || true  # it still waits if there was no reader
wait

# in_locale NAME CHARSET POINT, with the commands and what is expected as in `expect`
in_locale() {
  if ! localedef -c -i "$1" -f "$2" "$folder/$1.$2" >/dev/null 2>&1; then
    echo "skipped: the locale $1 cannot be made here (Debian's package locales has its source)"
    cat >/dev/null
  else
    # The C library does not give back all that it needs to find a locale.
    environment=("LOCPATH=$folder" "LC_ALL=$1.$2" ASAN_OPTIONS=detect_leaks=0)
    decimal_point=$3 expect "the locale $1"
  fi
}
echo "Locales"
seq 1 1233 | sed 's/.*/# &/' >numbered && echo 'real' >>numbered
printf 'true\n\nfloat 3.25 set\nbad value for option: real, value: 3,25\n' >expected
printf 'invalid line 1234 in config file: numbered\nreal float 3.25 set; \n' >>expected
printf 'new 0\nadd real 3\nset real 3.25 0\nread real\nset real 3,25 0\npath 0 numbered\n' |
  in_locale de_DE ISO-8859-1 ,
printf 'kept: bad option format: verbose, value: fix, command-line: -verbose=FIX\n\n' >expected
printf 'sample 2\nargs 0 -verbose=FIX\n' | in_locale tr_TR ISO-8859-9 ,

[ "$failures" -eq 0 ]
