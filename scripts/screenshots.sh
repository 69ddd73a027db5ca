#!/bin/sh
# Takes the pictures of all dialogs into docs/images: screenshots.sh BUILD, where BUILD is a folder of the preset
# "windows". They change only when the dialogs do.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
[ $# -ge 1 ] || { sed -n '2,3s/^# //p' "$0" >&2; exit 2; }

# In the session, where DISPLAY names the screen.
take() {
  gallery=$1/tests/windows/dialogs/dialog-gallery.exe
  place=$1/dialog-place
  rm -f "$place"
  wine "$gallery" "$2" "Z:$place" &
  dialog=$!
  until [ -s "$place" ]; do
    kill -0 "$dialog" || { echo "The dialog $2 does not show." >&2; exit 1; }
    sleep 0.1
  done
  import -window root -crop "$(cat "$place")" +repage -strip -define png:exclude-chunks=date,time \
    "$root/docs/images/$2.png"
  rm "$place"
  wait "$dialog"
}

if [ "${2-}" = --in-session ]; then
  for name in frmAbout frmConnectProgress frmConnect frmInput frmOptions frmMapWizard-attribute \
    frmMapWizard-separator frmMapWizard-target frmImport message-box; do
    take "$1" "$name"
  done
  exit
fi

build=$(cd "$1" && pwd)
mkdir -p "$root/docs/images"
cmake --build "$build" --target dialog-gallery
"$root/scripts/wine.sh" --screen --limit 300 "$build" "$root/scripts/screenshots.sh" "$build" --in-session
