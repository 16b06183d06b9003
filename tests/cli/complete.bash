# What the completion offers for a line: FOLDER LINE
# shellcheck disable=SC1091
source "$1/kestrum.bash"
IFS=' ' read -ra COMP_WORDS <<<"$2"
[[ $2 != *' ' ]] || COMP_WORDS+=('')
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_kestrum
printf '%s\n' "${COMPREPLY[@]}" | sort -u
