#!/bin/sh
# Sets up, uses, repairs, upgrades and removes the add-in, in the Wine session that it is started in:
#   setup.sh BUILD BUILDS WORKBENCH PROJECT
# BUILD is the Windows build's folder, BUILDS has the folders windows and windows-x86 with both DLLs, WORKBENCH is the native
# kestrune-workbench, PROJECT the sources. Each failure ends it with a line that says what is wrong.
set -eu

build=$1 builds=$2 workbench=$3 project=$4
x64=$builds/windows/Kestrune.dll x86=$builds/windows-x86/Kestrune.dll help=$build/ORIMDOORS.chm
user=$build/tests/windows/setup/setup-user.exe refusing=$build/tests/windows/setup/refusing.dll
drive=$WINEPREFIX/drive_c
folder='C:\Kestrune ŁЖ' unix_folder="$drive/Kestrune ŁЖ"  # blanks, and letters of no one code page
work=$(mktemp -d)
trap 'rm -rf "$work" "$unix_folder"' EXIT

fail() {
  echo "setup: $*" >&2
  exit 1
}
[ -f "$x64" ] && [ -f "$x86" ] || fail "both DLLs must be built: $x64, $x86"

registry() {
  wine "$user" registry 2>/dev/null | tr -d '\r'
}

expect_registry() {
  registry | grep -qF "$1" || fail "the registry lacks: $1, and has: $(registry)"
}

# All that there is on the drive but the links, which are the user's, and what the registry says of the add-in.
state() {
  (cd "$drive" && find . -not -path '*/[Tt]emp/*' -not -path "*/Brannock Works*" | LC_ALL=C sort)
  registry
}

expect_state() {
  state >"$work/now"
  diff "$1" "$work/now" || fail "$2"
}

expect_status() {
  wanted=$1
  shift
  status=0
  "$@" >/dev/null 2>&1 || status=$?
  [ $status -eq "$wanted" ] || fail "status $status, not $wanted: $*"
}

expect_reason() {
  iconv -f UTF-16 -t UTF-8 "$drive"/users/*/[Tt]emp/KestruneLink-setup.log | grep -q "$1" || fail "the reason is not told: $1"
}

await_gone() {
  tries=0
  while [ -e "$1" ]; do
    tries=$((tries + 1))
    [ $tries -lt 100 ] || fail "$1 is still there: $(ls -R "$1")"
    sleep 0.1
  done
}

remove() {
  expect_status 0 wine "$1\\uninstall.exe" /S
  await_gone "$2"  # a copy of the program does it
}

# A setup that meets FILE in use changes nothing, nor does the removal.
expect_refused_while_in_use() {
  wine "$user" hold "$1" "Z:$work/held" &
  holder=$!
  until [ -e "$work/held" ]; do
    kill -0 $holder 2>/dev/null || fail "$1 cannot be held"
    sleep 0.1
  done
  expect_status 2 wine "$work/first.exe" /S /ALLUSERS
  expect_reason 'is in use. Close Orim Studio'
  # shellcheck disable=SC2086
  expect_status 2 wine "$folder\\uninstall.exe" /S _?=$folder
  expect_reason 'is in use. Close Orim Studio'
  rm "$work/held"
  wait $holder
  expect_state "$work/installed" "a setup that met $1 in use has changed something"
}

import_as_installed() {
  sh "$project/tests/windows/sessions/session.sh" --installed "$build" "$workbench" \
    "$project/tests/data/reqif/resync-a.reqif" "$project/tests/workbench/sessions/whole-session.play"
}

expect_installed() {
  for file in Kestrune.dll ORIMDOORS.chm x86/Kestrune.dll x86/ORIMDOORS.chm uninstall.exe; do
    [ -f "$1/$file" ] || fail "$file was not installed"
  done
  [ "$(find "$1" -type f | wc -l)" -eq 5 ] || fail "there is more than was to be installed: $(ls -R "$1")"
  cmp "$x64" "$1/Kestrune.dll" && cmp "$x86" "$1/x86/Kestrune.dll" || fail "these are not the DLLs that were built"
}

"$project/scripts/make-setup.sh" 1.0.0 "$x64" "$x86" "$help" "$work/first.exe"
"$project/scripts/make-setup.sh" 1.0.1 "$x64" "$x86" "$help" "$work/second.exe"
"$project/scripts/make-setup.sh" 1.0.2 "$x86" "$x86" "$help" "$work/broken.exe"  # a DLL of the wrong bitness
if [ "$build" = "$builds/windows" ]; then set -- "$refusing" "$x86"; else set -- "$x64" "$refusing"; fi
"$project/scripts/make-setup.sh" 1.0.2 "$1" "$2" "$help" "$work/refusing.exe"  # a DLL whose registration fails
# What an earlier run that failed has left.
rm -rf "$drive"/users/*/AppData/Local/Programs/"Kestrune Link"
for audience in user machine; do
  wine regsvr32 /u /s /n /i:$audience "Z:$build/Kestrune.dll" >/dev/null 2>&1 || true
done
for root in HKCU HKLM; do
  wine reg delete "$root\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\KestruneLink" /f >/dev/null 2>&1 || true
done
for home in "$drive"/users/*/AppData/Local; do mkdir -p "$home/Programs"; done  # Windows has it from the beginning
state >"$work/before"

# For the machine, silently; then the add-in that the host finds by its name imports.
# shellcheck disable=SC2086
expect_status 0 wine "$work/first.exe" /S /ALLUSERS /D=$folder  # in two words: the setup takes no quotation marks here
expect_installed "$unix_folder"
expect_registry "HKLM 64 Class\\InprocServer32 = $folder\\Kestrune.dll"
if [ -f "$drive/windows/syswow64/regsvr32.exe" ]; then
  expect_registry "HKLM 32 Class\\InprocServer32 = $folder\\x86\\Kestrune.dll"
fi
expect_registry "HKLM 64 Entry DisplayVersion = 1.0.0"
import_as_installed

# Over it: the same once more, a later one, and where something is in the way nothing at all.
expect_status 0 wine "$work/first.exe" /S /ALLUSERS
expect_installed "$unix_folder"
expect_status 0 wine "$work/second.exe" /S /ALLUSERS
expect_installed "$unix_folder"
expect_registry "HKLM 64 Entry DisplayVersion = 1.0.1"
state >"$work/installed"
if [ "$build" = "$builds/windows" ]; then own=$folder; else own=$folder\\x86; fi
expect_refused_while_in_use "$own\\Kestrune.dll"
expect_refused_while_in_use "$own\\ORIMDOORS.chm"
expect_status 2 wine "$work/broken.exe" /S /ALLUSERS
expect_reason 'cannot be loaded on this machine'
expect_state "$work/installed" "an upgrade by a DLL of the wrong bitness has changed something"
expect_status 2 wine "$work/refusing.exe" /S /ALLUSERS
expect_reason 'cannot be registered: .* Everything is as it was before'
expect_state "$work/installed" "a failed upgrade has changed something"
expect_installed "$unix_folder"
import_as_installed
remove "$folder" "$unix_folder"
expect_state "$work/before" "the removal has left something"
ls "$drive"/users/*/AppData/Roaming/*/PlexaDOORS/*.xml >/dev/null || fail "the removal has taken the links"

# For the user: first setups that fail, folders that cannot be, and one by hand, with its pages.
expect_status 2 wine "$work/broken.exe" /S
expect_reason 'cannot be loaded on this machine'
expect_state "$work/before" "a setup with a DLL of the wrong bitness has left something"
expect_status 2 wine "$work/refusing.exe" /S
expect_reason 'cannot be registered: .* Everything is as it was before'
expect_state "$work/before" "a failed setup has left something"
touch "$unix_folder"
# shellcheck disable=SC2086
expect_status 2 wine "$work/first.exe" /S /D=$folder\\inside
expect_reason 'cannot be made'
rm "$unix_folder"
mkdir "$unix_folder"
touch "$unix_folder/new"  # in the way of the setup's own folder: root may write everywhere
# shellcheck disable=SC2086
expect_status 2 wine "$work/first.exe" /S /D=$folder
expect_reason 'cannot be written to'
rm -r "$unix_folder"
expect_status 2 wine "$work/first.exe" /S '/D=Z:\proc'  # not even root may
expect_reason 'cannot be written to'
expect_state "$work/before" "a setup without a place has left something"
expect_status 0 wine "$user" press "Z:$work/first.exe"
installed=$(registry | sed -n 's/^HKCU 64 Entry InstallLocation = //p')
unix_installed=$(wine winepath -u "$installed" | tr -d '\r')
expect_installed "$unix_installed"
expect_registry "HKCU 64 Library\\1.0\\0\\win64 = $installed\\Kestrune.dll"  # Wine keeps one class for both kinds here
state >"$work/for-user"
# shellcheck disable=SC2086
expect_status 2 wine "$work/refusing.exe" /S /ALLUSERS /D=$folder
expect_reason 'cannot be registered: .* Everything is as it was before'
expect_state "$work/for-user" "a failed setup for the machine has taken what the user had"
expect_status 0 wine "$user" press "$installed\\uninstall.exe" "_?=$installed"
rm "$unix_installed/uninstall.exe"  # it could not remove itself
rmdir "$unix_installed"
expect_state "$work/before" "the removal by hand has left something"
