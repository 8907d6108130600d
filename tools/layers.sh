#!/usr/bin/env bash
# Prints which folder includes which (with the number of #include lines) and fails
# when an include points up a layer or sideways between folders of one floor.
# The exceptions are read from the "Design notes" section of README.md, lines of
# the form "- `from -> to`: why", so that each allowed one is named with its reason.
set -euo pipefail
cd "$(dirname "$0")/.."

# The floors, lowest first. A folder may include folders of lower floors only.
rank() {
  case "$1" in
    platform/vb) echo 0 ;;
    platform/host) echo 1 ;;
    platform/forms) echo 2 ;;
    platform/qt) echo 3 ;;
    store) echo 3 ;;
    lists) echo 4 ;;
    reports) echo 5 ;;
    attend | edit | tables | startup | maint | exchange) echo 6 ;;
    program) echo 7 ;;
    app) echo 8 ;;
    *) echo "" ;;
  esac
}

# A file's folder: the first level under src/ (two for the platform), or app.
folder_of() {
  local d="${1%/*}"
  d="${d#src/}"
  case "$d" in
    platform/*) echo "$d" | cut -d/ -f1-2 ;;
    *) echo "${d%%/*}" ;;
  esac
}

edges="$(
  find src app -name '*.h' -o -name '*.cpp' | sort | while read -r f; do
    from="$(folder_of "$f")"
    grep -h '^[[:space:]]*#[[:space:]]*include[[:space:]]*"[^"]*/' "$f" |
      sed 's/^[^"]*"//; s/".*//' |
      awk -F/ -v from="$from" '{ to = ($1 == "platform") ? $1 "/" $2 : $1; if (to != from) print from " -> " to }'
  done | sort | uniq -c | awk '{ print $2, $3, $4, $1 }'
)"

allowed="$(awk '/^## /{ on = ($0 ~ /^## Design notes/) } on && /^- `[^`]* -> [^`]*`/ {
  s = $0; sub(/^- `/, "", s); sub(/`.*/, "", s); print s }' README.md)"

echo "Includes between folders (from -> to: #include lines):"
bad=0
while read -r from arrow to count; do
  [ -z "$from" ] && continue
  rf="$(rank "$from")"
  rt="$(rank "$to")"
  mark=""
  if [ -z "$rf" ] || [ -z "$rt" ]; then
    mark="  <- folder without a floor: give it one in tools/layers.sh"
    bad=1
  elif [ "$rt" -ge "$rf" ]; then
    if grep -qxF "$from -> $to" <<<"$allowed"; then
      mark="  (allowed, see README)"
    else
      mark="  <- points up or sideways"
      bad=1
    fi
  fi
  printf '  %-16s %s %-16s %4d%s\n' "$from" "$arrow" "$to" "$count" "$mark"
done <<<"$edges"

# The floors already rule out a cycle among the other arrows; a cycle through the
# allowed ones is listed so that it is seen, and fails unless each arrow is allowed.
if ! cycle="$(awk '{ print $1, $3 }' <<<"$edges" | tsort 2>&1 >/dev/null)"; then :; fi
if [ -n "$cycle" ]; then
  echo "Cycles between folders:"
  awk '/input contains a loop/ { if (l != "") print "  " l; l = ""; next }
       { sub(/^tsort: /, ""); l = (l == "") ? $0 : l " -> " $0 }
       END { if (l != "") print "  " l }' <<<"$cycle"
fi

if [ "$bad" -ne 0 ]; then
  echo "An include crosses the layers the wrong way (see above)." >&2
  exit 1
fi
