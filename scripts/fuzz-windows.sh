#!/bin/sh
# Calls the callbacks of build/windows/Kestrune.dll under Wine with arguments of any kind, for so many seconds:
#   fuzz-windows.sh SECONDS [SEED]
# What fails is named with the seed of its call, from which it can be begun again.
set -eu
cd "$(dirname "$0")/.."

seconds=$1
seed=${2:-$(date +%s)}
[ -f build/windows/build.ninja ] || cmake --preset windows
cmake --build build/windows --target fuzz-arguments
scripts/wine.sh --limit $((seconds + 120)) build/windows \
  wine build/windows/fuzz/windows/fuzz-arguments.exe "$seconds" "$seed"
