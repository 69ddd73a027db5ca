#!/bin/sh
# Runs the fuzzers of build/fuzz, or those named, for so many seconds each, beginning with what lies in fuzz/corpus. An input
# with which one fails is kept in build/fuzz/found/ and ends the run.
#   fuzz.sh SECONDS [NAME...]
set -eu
cd "$(dirname "$0")/.."

seconds=$1
shift
names=${*:-$(ls fuzz/corpus)}
mkdir -p build/fuzz/found
export UBSAN_OPTIONS=print_stacktrace=1
for name in $names; do
  learned=build/fuzz/learned/$name  # kept, so that the next run goes on from there
  mkdir -p "$learned"
  log=build/fuzz/$name.log
  seeds=fuzz/corpus/$name
  [ "$name" != dxl ] || seeds="$seeds tests/standins/dxl/scripts common/resources/dxl"
  # shellcheck disable=SC2086
  if ! build/fuzz/fuzz/fuzz-"$name" -max_total_time="$seconds" -max_len=4096 -timeout=10 -rss_limit_mb=2000 \
    -use_value_profile=1 -print_final_stats=1 -artifact_prefix="build/fuzz/found/$name-" "$learned" $seeds \
    2>"$log"; then
    tail -n 40 "$log" >&2
    exit 1
  fi
  awk -v name="$name" '/^#.*cov: / { for (i = 1; i < NF; i++) if ($i == "cov:") edges = $(i + 1) }
    /number_of_executed_units/ { runs = $2 }
    END { printf "%-10s %10d executions, %6d edges\n", name, runs, edges }' "$log"
done
