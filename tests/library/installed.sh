#!/bin/sh
# The examples of examples/api built and run against the installed library, found by CMake and by
# pkg-config: no source, no static library and no data of the build tree takes part.
#   installed.sh BUILD SOURCE
set -eu
build=$1
source=$2
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

for component in library development; do
    cmake --install "$build" --prefix "$place/usr" --component $component >/dev/null
done
export KESTRUM_DATA=/nonexistent XDG_DATA_HOME=/nonexistent

cmake -S "$source/examples/api" -B "$place/api" -DCMAKE_PREFIX_PATH="$place/usr" >"$place/log" ||
    { cat "$place/log"; exit 1; }
cmake --build "$place/api" >"$place/log" || { cat "$place/log"; exit 1; }
"$place/api/beam" >"$place/beam.txt"
grep -q '^IPE [0-9]* passes$' "$place/beam.txt"
"$place/api/column" | grep -q '^within limits'
"$place/api/frame" | grep -q '^all columns: HE[AB] [0-9]*, '

# The header alone as C99 and C++17, and the same programs by pkg-config.
export PKG_CONFIG_PATH PKG_CONFIG_SYSROOT_DIR=
PKG_CONFIG_PATH=$(dirname "$(find "$place/usr" -name kestrum.pc)")
flags=$(pkg-config --cflags --libs kestrum)
# shellcheck disable=SC2086
${CC:-cc} -std=c99 -Wall -Wextra -Wpedantic -Werror "$source/examples/api/column.c" -o "$place/column" $flags
LD_LIBRARY_PATH=$(dirname "$(find "$place/usr" -name libkestrum.so.1)") "$place/column" |
    grep -q '^within limits'

# Nothing but the interface is visible.
foreign=$(nm -D --defined-only "$(find "$place/usr" -name libkestrum.so.1)" |
    awk '$3 !~ /^kestrum_|^KESTRUM_1$/ { print $3 }')
[ -z "$foreign" ] || { echo "visible: $foreign" >&2; exit 1; }
