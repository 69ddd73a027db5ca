#!/bin/sh
# Sets up, uses, repairs, upgrades and removes the add-in, in the Wine session that it is started in:
#   setup.sh BUILD BUILDS WORKBENCH PROJECT
# BUILD is the Windows build's folder, BUILDS has the folders windows and windows-x86 with both DLLs, WORKBENCH is the native
# kestrune-workbench, PROJECT the sources. Each failure ends it with a line that says what is wrong.
set -eu

build=$1 builds=$2 workbench=$3 project=$4
x64=$builds/windows/Kestrune.dll x86=$builds/windows-x86/Kestrune.dll help=$build/ORIMDOORS.chm
user=$build/tests/windows/setup/setup-user.exe
drive=$WINEPREFIX/drive_c
folder='C:\Kestrune ŁЖ' unix_folder="$drive/Kestrune ŁЖ"  # blanks, and letters of no one code page
entry='Software\Microsoft\Windows\CurrentVersion\Uninstall\KestruneLink'
class='Software\Classes\CLSID\{BA85A3AB-7716-4C90-B8D4-994A5DB694E3}\InprocServer32'
work=$(mktemp -d)
trap 'rm -rf "$work" "$unix_folder"' EXIT

fail() {
  echo "setup: $*" >&2
  exit 1
}
[ -f "$x64" ] && [ -f "$x86" ] || fail "both DLLs must be built: $x64, $x86"

# The view of the registry that the 64-bit setup writes to; a 32-bit Wine program sees the other one unless told.
value() {
  wine reg query "$1" $(if [ -n "${3-}" ]; then echo "/v $3"; else echo /ve; fi) "/reg:$2" 2>/dev/null | tr -d '\r' |
    sed -n 's/.*REG_SZ *//p'
}

# All that there is on the drive and in the registry but what comes and goes by itself.
state() {
  (cd "$drive" && find . -not -path '*/[Tt]emp/*' -not -name '*.lock' | LC_ALL=C sort)
  for key in HKLM HKCU; do
    for part in 'Software\Classes' 'Software\Microsoft\Windows\CurrentVersion\Uninstall'; do
      wine reg query "$key\\$part" /s /reg:64 2>/dev/null | tr -d '\r' | grep -i -e kestrune -e orimdoors || true
      wine reg query "$key\\$part" /s /reg:32 2>/dev/null | tr -d '\r' | grep -i -e kestrune -e orimdoors || true
    done
  done
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
wine regsvr32 /u /s /n /i:machine "Z:$build/Kestrune.dll" >/dev/null 2>&1 || true
state >"$work/before"

# For the machine, silently; then the add-in that the host finds by its name imports.
expect_status 0 wine "$work/first.exe" /S /ALLUSERS "/D=$folder"
expect_installed "$unix_folder"
[ "$(value "HKLM\\$class" 64)" = "$folder\\Kestrune.dll" ] || fail "the 64-bit DLL is not registered"
if [ -f "$drive/windows/syswow64/regsvr32.exe" ]; then
  [ "$(value "HKLM\\$class" 32)" = "$folder\\x86\\Kestrune.dll" ] || fail "the 32-bit DLL is not registered"
fi
[ "$(value "HKLM\\$entry" 64 DisplayVersion)" = 1.0.0 ] || fail "no entry under installed programs"
sh "$project/tests/windows/sessions/session.sh" --installed "$build" "$workbench" \
  "$project/tests/data/reqif/resync-a.reqif" "$project/tests/workbench/sessions/whole-session.play"

# Over it: the same once more, a later one, and where something is in the way nothing at all.
expect_status 0 wine "$work/first.exe" /S /ALLUSERS
expect_installed "$unix_folder"
expect_status 0 wine "$work/second.exe" /S /ALLUSERS
expect_installed "$unix_folder"
[ "$(value "HKLM\\$entry" 64 DisplayVersion)" = 1.0.1 ] || fail "the version is not that of the upgrade"
state >"$work/installed"
if [ "$build" = "$builds/windows" ]; then held=$folder\\Kestrune.dll; else held=$folder\\x86\\Kestrune.dll; fi
wine "$user" hold "$held" "Z:$work/held" &
holder=$!
until [ -e "$work/held" ]; do
  kill -0 $holder 2>/dev/null || fail "the DLL cannot be loaded"
  sleep 0.1
done
expect_status 2 wine "$work/first.exe" /S /ALLUSERS
expect_reason 'is in use. Close Orim Studio'
expect_status 2 wine "$folder\\uninstall.exe" /S "_?=$folder"
expect_reason 'is in use. Close Orim Studio'
rm "$work/held"
wait $holder
expect_state "$work/installed" "a setup that met a loaded DLL has changed something"
expect_status 2 wine "$work/broken.exe" /S /ALLUSERS
expect_reason 'cannot be loaded on this machine'
expect_state "$work/installed" "a failed upgrade has changed something"
remove "$folder" "$unix_folder"
expect_state "$work/before" "the removal has left something"

# For the user: a first setup that fails, a folder that cannot be, and one by hand, with its pages.
expect_status 2 wine "$work/broken.exe" /S
expect_reason 'cannot be loaded on this machine'
expect_state "$work/before" "a failed setup has left something"
touch "$unix_folder"
expect_status 2 wine "$work/first.exe" /S "/D=$folder\\inside"
expect_reason 'cannot be written to'
rm "$unix_folder"
expect_state "$work/before" "a setup without a place has left something"
expect_status 0 wine "$user" press "Z:$work/first.exe"
installed=$(value "HKCU\\$entry" 64 InstallLocation)
unix_installed=$(wine winepath -u "$installed" | tr -d '\r')
expect_installed "$unix_installed"
[ "$(value "HKCU\\$class" 64)" = "$installed\\Kestrune.dll" ] || fail "the DLL is not registered for the user"
expect_status 0 wine "$user" press "$installed\\uninstall.exe" "_?=$installed"
rm "$unix_installed/uninstall.exe"  # it could not remove itself
rmdir "$unix_installed"
rmdir -p --ignore-fail-on-non-empty "$(dirname "$unix_installed")" 2>/dev/null || true
expect_state "$work/before" "the removal by hand has left something"
