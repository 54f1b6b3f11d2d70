#!/usr/bin/env bash
# Types command lines and tabs into bash, zsh and fish with the scripts of completion_test.cc, in
# the variables bash_script, zsh_script and fish_script. Exits with status 77 if a shell is missing.
# shellcheck disable=SC1003,SC2016  # single quotes protect what the other shells expand
set -eu
{ command -v zsh && command -v fish; } >/dev/null || exit 77
export HOME LC_ALL=C.UTF-8
HOME=$(mktemp -d)
trap 'rm -rf "$HOME"' EXIT
cd "$HOME"
touch file.txt
lines=('cmd -f' 'cmd -mo' 'cmd -mode=f' 'cmd -mode=\$' 'cmd -max=f' 'cmd -mask=f' 'cmd -\$' 'cmd f')

# type_in COMMAND SETTINGS: types into a shell on a terminal of its own. Control-T prints the line.
type_in() {
  timeout 60 zsh -f -c 'zmodload zsh/zpty
    zpty shell $1
    zpty -w shell $2
    for line in ${@[3,-1]}; do zpty -w -n shell $line$'\''\t\x14'\''; done
    zpty -w shell exit
    while zpty -r shell; do :; done' type_in "$@" "${lines[@]}" >/dev/null
}
type_in 'bash --norc --noprofile -i' 'eval "$bash_script"; bind -x '\''"\C-t": save'\''
  save() { echo "$READLINE_LINE" >>.bash; READLINE_LINE=; }'
type_in 'zsh -f -i' 'autoload -Uz compinit; compinit -D -u; eval $zsh_script; zle -N save
  bindkey ^T save; save() { print -r -- $BUFFER >>.zsh; BUFFER=; }'
for line in "${lines[@]}"; do
  fish --no-config -c 'eval $fish_script; complete -C $argv' "$line" >>.fish
done

text='\$\(touch\ hit\)\`touch\ hit\`\'\''\;touch\ hit\;\'\''\"\\\|\&\*:ä'
for shell in .bash .zsh; do
  printf 'cmd %s\n' '-fold ' '-mode=' '-mode=fast ' "-mode=$text " '-max=f' '-mask=file.txt ' \
    "-$text=" 'file.txt ' | diff - "$shell"
done
text=$(eval "echo $text")
printf '%s\n' "-fold	$text  ." "-mode=	How" "-mode=fast	$text" "-mode=$text	$text" \
  '-mask=file.txt' "-$text=" 'file.txt' | diff - .fish
[ "$(ls)" = file.txt ]
