#!/bin/sh
# Makes build/release-<version>: the setup, a zip of the same files, the symbols, what was built from what, and the sums of
# all. The version is that of CMakeLists.txt, the date that of the commit; the same commit gives the same bytes, wherever and
# whenever it is built with the same packages. scripts/compare-releases.sh says where two differ.
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
version=$(sed -n 's/^project(KestruneLink VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
grep -q "^## $version" CHANGELOG.md || { echo "CHANGELOG.md has nothing on the version $version." >&2; exit 1; }
[ -z "$(git status --porcelain)" ] || { echo "There are changes that are not committed:" >&2; git status --short >&2; exit 1; }
commit=$(git rev-parse HEAD)
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
# A cache may hold an object of another folder, with its paths in the symbols.
export SOURCE_DATE_EPOCH CCACHE_DISABLE=1 TZ=UTC LC_ALL=C.UTF-8

for preset in package package-x86; do
  cmake --preset "$preset"
  cmake --build --preset "$preset" --target Kestrune
done

out=$root/build/release-$version
name=KestruneLink-$version
rm -rf "$out"
mkdir -p "$out"
scripts/make-setup.sh "$version" build/package/Kestrune.dll build/package-x86/Kestrune.dll build/package/ORIMDOORS.chm \
  "$out/$name-setup.exe"

# In a folder of its own, with the commit's time and in a fixed order.
pack() {
  archive=$1
  shift
  files=$(mktemp -d)
  mkdir -p "$files/x86"
  for pair in "$@"; do cp "build/${pair%:*}" "$files/${pair#*:}"; done
  find "$files" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +
  (cd "$files" && find . -type f | sed 's|^\./||' | sort | zip -q -X "$out/$archive" -@)
  rm -r "$files"
}
pack "$name.zip" package/Kestrune.dll:Kestrune.dll package/ORIMDOORS.chm:ORIMDOORS.chm \
  package-x86/Kestrune.dll:x86/Kestrune.dll package/ORIMDOORS.chm:x86/ORIMDOORS.chm
pack "$name-symbols.zip" package/Kestrune.dll.debug:Kestrune.dll.debug \
  package-x86/Kestrune.dll.debug:x86/Kestrune.dll.debug

package_version() {
  dpkg-query -W -f '${Version}' "$1"
}

# Purpose, package and licence of what is in the files or has made them.
{
  echo "Kestrune Link $version"
  echo "commit  $commit"
  echo "date    $(date -u -d "@$SOURCE_DATE_EPOCH" +%Y-%m-%d)"
  echo
  echo "In Kestrune.dll, linked statically:"
  while IFS='|' read -r what package licence; do
    printf '  %-34s %-28s %-24s %s\n' "$what" "$package" "$(package_version "$package")" "$licence"
  done <<LIST
libstdc++, libgcc (x86_64)|g++-mingw-w64-x86-64-posix|GPL-3+ with GCC Runtime Library Exception
libstdc++, libgcc (i686)|g++-mingw-w64-i686-posix|GPL-3+ with GCC Runtime Library Exception
start-up code, winpthreads (x86_64)|mingw-w64-x86-64-dev|ZPL-2.1, MIT, public domain
start-up code, winpthreads (i686)|mingw-w64-i686-dev|ZPL-2.1, MIT, public domain
UTF8-CPP|libutfcpp-dev|BSL-1.0
LIST
  echo
  echo "In the setup:"
  printf '  %-34s %-28s %-24s %s\n' "the program of the setup" nsis-common "$(package_version nsis-common)" \
    "zlib, with an LZMA decoder under CPL-1.0 with exception"
  echo
  echo "Made with, and not in it:"
  for package in binutils-mingw-w64-x86-64 binutils-mingw-w64-i686 mingw-w64-tools libwine-dev fp-compiler cmake; do
    printf '  %-34s %s\n' "$package" "$(package_version "$package")"
  done
} >"$out/$name-contents.txt"

cp CHANGELOG.md "$out/"
(cd "$out" && sha256sum -- *.exe *.md *.txt *.zip | tee SHA256SUMS)
