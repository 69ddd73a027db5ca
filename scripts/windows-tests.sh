#!/bin/sh
# Builds the Windows programs in the folder BUILD (build/windows) and runs their tests in one Wine session:
#   windows-tests.sh [BUILD [CTEST-ARGUMENT...]]
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build/windows}
[ $# -eq 0 ] || shift

[ -f "$build/build.ninja" ] || cmake --preset windows -S "$root" -B "$build"
cmake --build "$build"
"$root/scripts/wine.sh" "$build" ctest --test-dir "$build" --output-on-failure "$@"
