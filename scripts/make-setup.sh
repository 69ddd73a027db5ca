#!/bin/sh
# Compiles the setup: make-setup.sh VERSION X64-DLL X86-DLL HELP OUTPUT. The same files give the same bytes.
set -eu
[ $# -eq 5 ] || { sed -n '2s/^# //p' "$0" >&2; exit 2; }
root=$(cd "$(dirname "$0")/.." && pwd)
makensis -V2 -INPUTCHARSET UTF8 "-DVERSION=$1" "-DX64=$(realpath "$2")" "-DX86=$(realpath "$3")" "-DHELP=$(realpath "$4")" \
  "-DOUTPUT=$(realpath "$5")" "$root/setup/Kestrune.nsi"
