#!/bin/sh
# Measures what an import costs as a Windows program under Wine, beside bare MSXML, and prints a table of medians:
#   bench-windows.sh [BUILD [ROUNDS]]
# With BUILD build/windows-x86 it is one 32-bit process each time, in the 32-bit Debian.
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build/windows}
rounds=${2:-5}

preset=$(basename "$build")
[ -f "$build/build.ninja" ] || cmake --preset "$preset" -S "$root" -B "$build"
cmake --build "$build" --target kestrune-bench
build=$(cd "$build" && pwd)
system=
[ "$preset" != windows-x86 ] || system=$root/scripts/debian-i386.sh

folder=$build/bench-files
mkdir -p "$folder"
trap 'rm -rf "$folder"' EXIT
cat > "$folder/run.sh" <<'RUN'
# run.sh PROGRAM FOLDER ROUNDS
set -eu
program=$1 folder=$2 rounds=$3
measure() { wine "$program" "$1" "Z:$folder" "$2" | tr -d '\r'; }
# median FIELD FILE
median() { cut -d' ' -f"$1" "$2" | sort -n | sed -n "$(((rounds + 1) / 2))p"; }
# compare PHASE WORK OBJECTS [BARE-WORK]
compare() {
  rm -f "$folder"/ours "$folder"/bare
  for _ in $(seq "$rounds"); do
    measure "$2" "$3" >> "$folder/ours"
    [ $# -lt 4 ] || measure "$4" "$3" >> "$folder/bare"
  done
  seconds=$(median 1 "$folder/ours") peak=$(median 2 "$folder/ours")
  if [ $# -lt 4 ]; then
    echo "| $1 | $3 | $seconds | | $peak | |"
  else
    awk -v phase="$1" -v objects="$3" -v s="$seconds" -v bs="$(median 1 "$folder/bare")" -v p="$peak" \
      -v bp="$(median 2 "$folder/bare")" \
      'BEGIN { printf "| %s | %s | %s | %.2f | %s | %.2f |\n", phase, objects, s, s / bs, p, p / bp }'
  fi
}
echo "| phase | objects | seconds | : MSXML | peak MB | : MSXML |"
echo "|---|--:|--:|--:|--:|--:|"
for objects in 1000 10000 50000; do
  measure export $objects > "$folder/made"
  compare "load the export" load $objects load-bare
done
for objects in 1000 10000; do
  measure import $objects > "$folder/made"
  compare "read the package" read $objects read-bare
  compare "import, nothing changed" import $objects
done
RUN
$system "$root/scripts/wine.sh" --limit 3600 "$build" sh "$folder/run.sh" "$build/bench/windows/kestrune-bench.exe" "$folder" "$rounds"
