#!/bin/sh
# Runs a command in a Wine session that begins and ends with it:
#   wine.sh [--screen] [--limit SECONDS] BUILD COMMAND [ARGUMENT...]
# The session's files lie in the folder BUILD and are made on first use. Its windows are real but nobody can see them;
# with --screen there is a virtual screen, named by DISPLAY, of which pictures can be taken. The exit status is the
# command's; a command still running after SECONDS (900) is ended with status 124.
set -eu

screen=
limit=900
while :; do
  case "${1-}" in
    --screen) screen=1; shift ;;
    --limit) limit=$2; shift 2 ;;
    *) break ;;
  esac
done
if [ $# -lt 2 ]; then
  sed -n '2,6s/^# //p' "$0" >&2
  exit 2
fi
build=$(cd "$1" && pwd)
shift

if [ -n "$screen" ]; then
  graphics=x11
  WINEPREFIX=$build/wine-screen
else
  graphics=null
  WINEPREFIX=$build/wine
fi
export WINEPREFIX WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml=" LC_ALL=C.UTF-8
unset DISPLAY

end_session() {
  wineserver -k 2>/dev/null || true
  wineserver -w 2>/dev/null || true
}

# The first process of a session hands its output on to Wine's services, which would keep a pipe open: hence /dev/null.
prepare() {
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX"
  timeout 300 wineboot -i >/dev/null 2>&1 9>&-
  ln -sf /usr/share/wine/fonts/*.ttf /usr/share/wine/fonts/*.fon "$WINEPREFIX/drive_c/windows/Fonts/"
  printf '%s\r\n' 'REGEDIT4' '' \
    '[HKEY_CURRENT_USER\Software\Wine\Drivers]' "\"Graphics\"=\"$graphics\"" '' \
    '[HKEY_CURRENT_USER\Software\Wine\X11 Driver]' '"Managed"="N"' '' \
    '[HKEY_CURRENT_USER\Software\Wine\WineDbg]' '"ShowCrashDialog"=dword:00000000' \
    >"$WINEPREFIX/drive_c/settings.reg"
  timeout 60 wine regedit /S 'C:\settings.reg' >/dev/null 2>&1 9>&-
  end_session
  touch "$WINEPREFIX/ready"
}

# One session at a time: two would end each other.
exec 9>"$WINEPREFIX.lock"
flock -w "$limit" 9 || { echo "Another session in $WINEPREFIX does not end." >&2; exit 1; }
[ -f "$WINEPREFIX/ready" ] || prepare

screen_process=
finish() {
  end_session
  [ -z "$screen_process" ] || kill "$screen_process" 2>/dev/null || true
}
trap finish EXIT
trap 'exit 130' INT TERM

if [ -n "$screen" ]; then
  : >"$WINEPREFIX/display"
  Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp 3>"$WINEPREFIX/display" >/dev/null 2>&1 9>&- &
  screen_process=$!
  tries=0
  until [ -s "$WINEPREFIX/display" ]; do
    tries=$((tries + 1))
    [ $tries -le 100 ] || { echo "The virtual screen does not start." >&2; exit 1; }
    sleep 0.1
  done
  DISPLAY=:$(tr -d '\n' <"$WINEPREFIX/display")
  export DISPLAY
fi

wineserver -p 9>&-
timeout 60 wine cmd /c exit >/dev/null 2>&1 9>&-
status=0
timeout -k 10 "$limit" "$@" 9>&- || status=$?
[ $status -ne 124 ] || echo "Ended after $limit seconds: $*" >&2
exit $status
