#!/bin/sh
# Plays a session on the Windows build, in the Wine session that it is started in, and holds it to the native build:
#   session.sh [--installed] [--faults] [--keyboard] BUILD WORKBENCH REQIF SCRIPT [MODULE]
# BUILD is the Windows build's folder, WORKBENCH the native kestrune-workbench; DOORS has the file REQIF loaded at /Demo.
# The lines shown must be those of SCRIPT's file .out or, where there is none, of the native build; both must leave the
# same model. With --keyboard, the user has no mouse. With --faults, for what befalls a DOORS in another process, the
# Windows build is held to .out alone. Given MODULE, from which the script imports at last, an import by the native build
# must find nothing to change after it. With --installed, the add-in is the one that the setup has registered, else that
# of BUILD.
set -eu

faults= keyboard= installed=
[ "$1" != --installed ] || { installed=1; shift; }
[ "$1" != --faults ] || { faults=1; shift; }
[ "$1" != --keyboard ] || { keyboard=--keyboard; shift; }
build=$1 workbench=$2 reqif=$3 script=$4 module=${5-}
[ -x "$workbench" ] || { echo "The native kestrune-workbench is not built: $workbench" >&2; exit 1; }
expected=${script%.play}.out
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The same data for each build: identifiers differ from one new model to the next.
prepare() {
  "$workbench" doors load "$reqif" --doors "$work/doors" --at /Demo >/dev/null
  "$workbench" new "$work/model" --package Requirements >/dev/null
  for played in native windows; do
    mkdir "$work/$played"
    cp "$work/doors" "$work/model" "$work/$played/"
  done
}

# What is shown, without the folders of files, and the status.
run() {
  status=0
  "$@" >lines 2>&1 || status=$?
  tr -d '\r' <lines | sed -e 's/^File: .*\\/File: /' -e 's|^[^ ]*/\([^/ ]*\.play:[0-9]\)|\1|' >shown
  echo "status $status" >>shown
  "$workbench" tree --model model >tree
}

play_native() {
  cd "$work/native"
  run "$workbench" play "$script" --model model --doors doors --package Requirements --data data
}

play_on_windows() {
  cd "$work/windows"
  [ -n "$installed" ] || wine regsvr32 /s /n /i:machine "Z:$build/Kestrune.dll"
  run wine "$build/kestrune-host.exe" play "Z:$script" --model "Z:$PWD/model" --doors "Z:$PWD/doors" \
    --package Requirements --workbench "$workbench" --doors-log "Z:$PWD/log" $keyboard
}

# A session that departs from its script says so in the last line of .out.
expect() {
  if [ -f "$expected" ]; then cat "$expected"; elif [ -z "$faults" ]; then sed '/^status /d' "$work/native/shown"; fi
  if [ -f "$expected" ] && tail -n 1 "$expected" | grep -q '^[^ ]*\.play:'; then status=1; else status=0; fi
  echo "status $status"
}

# Every field and tagged value is as the native build would write it.
import_again() {
  cd "$work/windows"
  set -- --model model --doors doors --package Requirements --data data
  "$workbench" link --module "$module" "$@" >/dev/null
  "$workbench" import "$@" >again
  grep -q 'Import Complete' again
  ! grep '^ ' again
}

prepare
play_on_windows
[ -n "$faults" ] || play_native
expect >"$work/expected"
diff "$work/expected" "$work/windows/shown" || {
  echo "DOORS printed:"
  cat "$work/windows/log" 2>/dev/null || true
  exit 1
}
if [ -z "$faults" ]; then diff "$work/native/tree" "$work/windows/tree"; fi
if [ -n "$module" ]; then import_again; fi
