#!/bin/sh
# Runs a command in a 32-bit Debian whose Wine runs 32-bit and 64-bit programs, as users' machines do; the 32-bit Wine cannot
# be installed beside the 64-bit one of this machine:
#   debian-i386.sh [COMMAND [ARGUMENT...]]
# That system lies in build/debian-i386, is made on first use (as root, from the network, 1.3 GB) and kept; without COMMAND
# it is only made. The project's folder has its own place there, and native programs run too. Mounts and processes are in
# namespaces that end with the command, whatever ends it.
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
system=$root/build/debian-i386
# Wine for both kinds, ctest, makensis, and the libraries of the native kestrune-workbench.
packages=wine,wine32,wine64:amd64,fonts-wine,fonts-liberation,cmake,nsis
packages=$packages,libstdc++6:amd64,libxml2:amd64,libsqlite3-0:amd64,libzip4:amd64

if [ "$(id -u)" -ne 0 ]; then
  echo "Only root can set up and enter the 32-bit Debian." >&2
  exit 1
fi
# enter SYSTEM COMMAND [ARGUMENT...]: instead of the shell that calls it, so that whatever ends this ends all.
enter() {
  # shellcheck disable=SC2016
  exec unshare --mount --pid --fork --kill-child --mount-proc="$1/proc" sh -euc '
    root=$1 system=$2
    shift 2
    mount --bind /dev "$system/dev"
    mount -t tmpfs none "$system/tmp"
    mkdir -p "$system$root"
    mount --bind "$root" "$system$root"
    exec chroot "$system" "$@"' - "$root" "$@"
}

mkdir -p "$root/build"
exec 9>"$system.lock"
flock 9
if [ ! -d "$system" ]; then
  "$root/scripts/setup.sh" windows-x86
  rm -rf "$system.part"
  # The machine's settings of apt, as to proxies, hold there as well. One mirror is enough for what is never shipped.
  unshare --mount mmdebstrap --mode=root --variant=apt --architectures=i386,amd64 \
    --setup-hook='! [ -d /etc/apt/apt.conf.d ] || cp /etc/apt/apt.conf.d/* "$1/etc/apt/apt.conf.d/"' \
    --include="$packages" bookworm "$system.part" http://deb.debian.org/debian
  (enter "$system.part" wine --version)  # a kernel without 32-bit programs refuses it
  mv "$system.part" "$system"
fi
exec 9>&-
[ $# -gt 0 ] || exit 0

unset TMPDIR
enter "$system" "$@"
