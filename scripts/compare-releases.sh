#!/bin/sh
# Says where two releases differ: compare-releases.sh FOLDER FOLDER. The exit status is 1 when they do. Archives are compared
# by what is in them, programs by their sections.
set -eu
[ $# -eq 2 ] || { sed -n '2,3s/^# //p' "$0" >&2; exit 2; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0

sections() {
  x86_64-w64-mingw32-objdump -h "$1" | sed -n 's/^ *[0-9]* \([^ ]*\) .*/\1/p'
}

compare_sections() {
  for section in $(sections "$1"); do
    for file in "$1" "$2"; do
      x86_64-w64-mingw32-objdump -s -j "$section" "$file" 2>/dev/null | sed 1,3d >"$work/section-$([ "$file" = "$1" ] && echo 1 || echo 2)"
    done
    cmp -s "$work/section-1" "$work/section-2" ||
      echo "    section $section: $(diff "$work/section-1" "$work/section-2" | grep -c '^<') lines of 16 bytes, the first of them:" \
        "$(diff "$work/section-1" "$work/section-2" | sed -n '2p')"
  done
}

# compare FOLDER FOLDER NAME-FOR-MESSAGES
compare() {
  for name in $( (cd "$1" && find . -type f; cd "$2" && find . -type f) | sort -u); do
    if [ ! -f "$1/$name" ] || [ ! -f "$2/$name" ]; then
      echo "$3$name is in one of them only"
      status=1
    elif ! cmp -s "$1/$name" "$2/$name"; then
      status=1
      echo "$3$name differs: $(cmp -l "$1/$name" "$2/$name" 2>/dev/null | wc -l) bytes, $(cmp "$1/$name" "$2/$name" 2>&1 | sed 's/.*differ: //')"
      case $name in
        *.dll | *.debug) compare_sections "$1/$name" "$2/$name" ;;
        *.zip)
          inside=$work/$(basename "$name" .zip)
          unzip -qq "$1/$name" -d "$inside-1"
          unzip -qq "$2/$name" -d "$inside-2"
          compare "$inside-1" "$inside-2" "$name: " ;;
      esac
    fi
  done
}

compare "$1" "$2" ""
[ $status -ne 0 ] || echo "Both are the same."
exit $status
