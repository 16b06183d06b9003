#!/bin/sh
# What run.sh does when packages are missing: with fakes of the programs that look for packages and install them.
#   install_packages.sh SOURCE
set -eu
source=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
bin=$work/bin
mkdir "$bin"
for program in sh awk grep dirname readlink; do
    ln -s "$(command -v $program)" "$bin/$program"
done
fake() { # name, lines
    printf '#!/bin/sh\n%s\n' "$2" >"$bin/$1"
    chmod +x "$bin/$1"
}
fake dpkg-query 'exit 1'
fake id 'echo 1000'
fake apt-get 'echo "apt-get $*" >>"$LOG"; exit 1'
LOG=$work/log
export LOG

# The end of a fake installation is a failure, so that run.sh goes no further.
expect() { # what, text, where
    grep -q -- "$2" "$3" || { echo "$1: '$2' is not in:"; cat "$3"; exit 1; }
}
run() { # arguments; what it says goes to said
    : >"$LOG"
    status=0
    PATH=$bin "$source/run.sh" "$@" >"$work/said" 2>&1 </dev/null || status=$?
    [ $status -eq 2 ] || { echo "exit $status"; cat "$work/said"; exit 1; }
}
watched() { # answer, arguments: the same on a terminal
    : >"$LOG"
    answer=$1
    shift
    printf '%s\n' "$answer" | SHELL=/bin/sh script -qec "PATH='$bin' '$source/run.sh' $*" /dev/null >"$work/said" 2>&1 || true
}

run
expect "neither root nor sudo" "neither root nor sudo.*cmake" "$work/said"
[ ! -s "$LOG" ] || { echo "installed without root"; exit 1; }

fake sudo 'exec "$@"'
run
expect "nobody watches" "apt-get update" "$LOG"
expect "nobody watches" "may you use sudo? missing are: .*cmake" "$work/said"

watched no
expect "no" "Install them now with sudo?" "$work/said"
expect "no" "nothing installed; missing are: .*cmake" "$work/said"
[ ! -s "$LOG" ] || { echo "installed against the answer"; exit 1; }
watched yes
expect "yes" "apt-get update" "$LOG"
watched no --yes
expect "--yes" "apt-get update" "$LOG"

run --no
expect "unknown option" "unknown option --no" "$work/said"
