#!/bin/sh
# Installs what is missing, builds, checks the example project, prints the result and opens the desktop
# where there is a display. Quick when nothing is left to do.
#   ./run.sh           asks before it installs packages, where somebody is there to answer
#   ./run.sh --yes     installs them without asking
set -eu
cd "$(dirname "$(readlink -f "$0")")" # also when called through a link
. tools/lib/setup.sh

yes=
case "${1:-}" in
"") ;;
--yes | -y) yes=1 ;;
*) die "unknown option $1; known is --yes" ;;
esac
install_packages build desktop

build=build/release
if [ ! -e $build/build.ninja ]; then
    say "Configuring $build"
    cmake --preset release -DKESTRUM_TESTS=OFF -DKESTRUM_BENCH=OFF >/dev/null || die "cmake could not configure $build"
fi
say "Building"
targets="kestrum kestrum_data"
grep -q 'build kestrum-ec3:' $build/build.ninja && targets="$targets kestrum-ec3"
grep -q 'build kestrum-render:' $build/build.ninja && targets="$targets kestrum-render"
# shellcheck disable=SC2086
cmake --build --preset release --target $targets || die "the build failed; the first error stands above"

example=examples/f001_hea_beam.kst
say "Checking $example"
status=0
$build/bin/kestrum check $example || status=$?
[ $status -le 1 ] || die "the example could not be checked (exit $status)"

if [ -x $build/bin/kestrum-ec3 ]; then
    if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
        say "Opening the desktop"
        exec $build/bin/kestrum-ec3 "$example"
    fi
    say "No display here; the desktop is $build/bin/kestrum-ec3"
fi
