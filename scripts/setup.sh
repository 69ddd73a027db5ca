#!/bin/sh
# Sees to it that what the build needs is installed: installs what is missing when run as root, else says what to install.
#   setup.sh              for the native build
#   setup.sh windows      for Kestrune.dll and its tests under Wine
#   setup.sh windows-x86  for the 32-bit Debian that runs the i686 Kestrune.dll
#   setup.sh checks       for the checks on the source
#   setup.sh fuzz         for the fuzzers
set -eu

case "${1-native}" in
  native) packages="g++ cmake ninja-build pkg-config ccache libxml2-dev libsqlite3-dev libzip-dev libcli11-dev
libutfcpp-dev libgtest-dev libbenchmark-dev" ;;
  windows) packages="g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools libwine-dev wine wine64
fonts-wine fonts-liberation googletest fp-compiler fp-units-rtl fp-units-fcl fp-units-misc faketime nsis zip unzip xvfb
imagemagick"
    command -v npm >/dev/null || packages="$packages npm" ;;  # for the source of SQLite
  windows-x86) packages="mmdebstrap arch-test" ;;
  checks) packages="clang-format clang-tidy-19" ;;
  fuzz) packages="clang-19 libclang-rt-19-dev" ;;
  *) sed -n '2,7s/^# //p' "$0" >&2; exit 2 ;;
esac

missing=""
for package in $packages; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing="$missing $package"
done
[ -z "$missing" ] && exit 0

if [ "$(id -u)" -ne 0 ]; then
  echo "These packages are missing; install them and try again:" >&2
  echo "  sudo apt-get install --no-install-recommends$missing" >&2
  exit 1
fi
echo "Installing$missing"
export DEBIAN_FRONTEND=noninteractive
apt-get update -q
# shellcheck disable=SC2086
apt-get install -y -q --no-install-recommends $missing
