#!/bin/sh
# Installs what is missing, builds and runs all tests. What this script runs is what CI runs.
#   ./test.sh              release build with all tests, sanitizer build with the tests of files, inputs and passes and the
#                          fuzz smoke run, format check
#   ./test.sh --full       the same, then the second compiler, static analysis, coverage, manuals, packages
#                          and the Windows build
#   ./test.sh --coverage   line and branch coverage of the calculation only
set -eu
cd "$(dirname "$(readlink -f "$0")")" # also when called through a link
. tools/lib/setup.sh
yes=1 # tests run where nobody answers

# Qt and the tests find their folders on machines without a login session.
XDG_RUNTIME_DIR=$(mktemp -d)
chmod 700 "$XDG_RUNTIME_DIR"
export XDG_RUNTIME_DIR
trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
jobs=$(nproc)

build_and_test() { # preset, further cmake arguments
    preset=$1
    shift
    say "Building $preset"
    cmake --preset "$preset" "$@" >/dev/null || die "cmake could not configure $preset"
    cmake --build --preset "$preset" || die "the $preset build failed; the first error stands above"
    say "Testing $preset"
    ctest --preset "$preset" -j "$jobs" || die "tests failed in the $preset build"
}

coverage() {
    build_and_test coverage
    say "Coverage of the calculation"
    calculating='src/(core|clauses|sections|analysis|design|stability|service|standard|engine|library)/'
    for counted in --branches --txt; do
        gcovr --root . --filter "$calculating" --exclude-throw-branches --exclude-unreachable-branches \
            build/coverage $counted | tail -n 60
    done
}

case "${1:-}" in
"")
    install_packages build desktop test
    ;;
--full)
    install_packages build desktop test full manuals windows
    ;;
--coverage)
    install_packages build test full
    coverage
    exit 0
    ;;
*)
    die "unknown option $1; known are --full and --coverage"
    ;;
esac

say "Checking the format"
tools/check-format || die "run tools/check-format --fix"
tools/check-families || die "a section family is decided by its number; sections/families.h has its row"
tools/check-deviations || die "the deviation numbers in code, tests and docs/deviations.md differ"

build_and_test release -DKESTRUM_TESTS=ON -DKESTRUM_BENCH=ON -DKESTRUM_TESTS_TOGETHER=ON
tools/check-readme build/release/bin || die "README.md does not tell what the program does"
tools/field-docs --check build/release/bin/kestrum || die "docs/file-format.md or the schema is not current"
tools/lib/manual_sources.py check build/release/bin/kestrum || die "docs/theory does not tell what the program shows"
tools/check-hardening build/release || die "a delivered program is not hardened"
reports=8
[ "${1:-}" != --full ] || reports=500
tools/check-reports build/release/bin/kestrum $reports || die "a report of a random member is not whole"
# Formulas run under the sanitizers in whole passes, in the fuzzers and, with --full, in their own tests.
formulas=OFF
[ "${1:-}" != --full ] || formulas=ON
build_and_test sanitize -DKESTRUM_FORMULA_TESTS=$formulas -DKESTRUM_TESTS_TOGETHER=ON
say "Fuzz smoke run"
tools/fuzz --smoke || die "a fuzzer found a fault"

if [ "${1:-}" = --full ]; then
    build_and_test clang
    say "Static analysis"
    run-clang-tidy-14 -quiet -p build/clang "$(pwd)/src/(core|clauses|sections|analysis|design|stability|service|standard|engine|report|app|library|cli)/.*" ||
        die "clang-tidy found something"
    coverage
    say "The windows under the sanitizers"
    cmake --preset sanitize -DKESTRUM_DESKTOP=ON >/dev/null || die "cmake could not configure sanitize with the desktop"
    cmake --build --preset sanitize || die "the sanitizer build failed; the first error stands above"
    ctest --preset sanitize -R "^(ui|render)/" -j "$jobs" || die "a sanitizer found a fault in the windows"
    tools/build-docs build/release
    say "The windows on an X display"
    tools/check-display build/release || die "the desktop does not work on an X display"
    say "A cluster of two processes"
    PYTHONPATH=build/release/python PYTHONDONTWRITEBYTECODE=1 KESTRUM_SOURCE=$(pwd) \
        /usr/bin/python3 -m pytest -q -p no:cacheprovider tests/cluster || die "kestrum.dask failed on a cluster"
    tools/check-slurm build/release || die "the array of docs/scale.md does not answer as one run does"
    tools/check-packages build/release
    tools/check-abi build/release/src/library/libkestrum.so || die "programs built with this version would not run with the library"
    tools/check-pip || die "pip cannot install the Python package"
    KESTRUM_FULL=1 ctest --preset release -R "^python/" || die "the Python package fails with many rows"
    tools/check-windows
    tools/check-bare
fi
say "All green"
