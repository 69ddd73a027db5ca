#!/bin/sh
# Brings sqlite3.c and sqlite3.h into FOLDER: sqlite-amalgamation.sh FOLDER. Debian has no SQLite for MinGW, and its source
# package must be put together with Tcl first; this npm package carries the two files ready to compile. Without a network,
# put them into FOLDER by hand, from any recent release of SQLite.
set -eu

package=better-sqlite3@12.11.1
[ $# -eq 1 ] || { sed -n '2,4s/^# //p' "$0" >&2; exit 2; }
folder=$1
[ ! -f "$folder/sqlite3.c" ] || [ ! -f "$folder/sqlite3.h" ] || exit 0

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
(cd "$work" && npm pack --silent "$package" >/dev/null)
tar xzf "$work"/*.tgz -C "$work" package/deps/sqlite3
mkdir -p "$folder"
cp "$work/package/deps/sqlite3/sqlite3.c" "$work/package/deps/sqlite3/sqlite3.h" "$folder"
