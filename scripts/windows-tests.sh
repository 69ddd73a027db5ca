#!/bin/sh
# Builds the Windows programs in the folder BUILD, named after its preset (build/windows, or build/windows-x86 for the i686
# ones), and runs their tests in one Wine session:
#   windows-tests.sh [BUILD [CTEST-ARGUMENT...]]
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build/windows}
[ $# -eq 0 ] || shift

preset=$(basename "$build")
[ -f "$build/build.ninja" ] || cmake --preset "$preset" -S "$root" -B "$build"
cmake --build "$build"
build=$(cd "$build" && pwd)

system=
[ "$preset" != windows-x86 ] || system=$root/scripts/debian-i386.sh
$system "$root/scripts/wine.sh" "$build" ctest --test-dir "$build" --output-on-failure "$@"
