# What the completion offers for a line: FOLDER LINE. The line is typed into a shell on a terminal of its own, in which
# compadd notes down what it is given.
zmodload zsh/zpty
offered=$(mktemp)
zpty shell zsh -f -i
tell() { zpty -w shell "$1" }
tell "PROMPT=; fpath=(${(q)1} \$fpath); autoload -Uz compinit; compinit -u -D; LISTMAX=100000; offered=$offered"
tell 'compadd() { if (( ! ${argv[(I)-[OAD]]} )); then local -a hits; builtin compadd -O hits "$@"; print -rl -- ${(Q)hits} >>$offered; fi; builtin compadd "$@" }'
tell 'leave() { print left$((1 + 1)); exit }; zle -N leave; bindkey "^X" leave; bindkey "^I" complete-word'
zpty -w -n shell "$2"$'\t\x18'
while zpty -r shell line; do
  [[ $line != *left2* ]] || break
done
sort -u $offered
rm -f $offered
