#!/usr/bin/env bash
# Start to first person shown: launches the program on a generated crusade of
# each size under a virtual X display, presses a key on the splash as the
# operator would, and reads the first-paint stamps the program prints when
# VESTREL_PAINT_STAMPS is set. Prints the median of several runs and the peak
# resident memory. First the floor: an empty Qt window (bench/BareWindow) from
# start to its first paint, which no window of the program can beat.
#   tools/bench-startup.sh [build folder] [runs]    (a Release build is meant)
set -euo pipefail

build=${1:-build-rel}
runs=${2:-7}
app=$build/vestrel
make=$build/MakeStartupCrusade
bare=$build/BareWindow
for f in "$app" "$make" "$bare"; do
  [ -x "$f" ] || { echo "missing $f: build it first (cmake --build $build --target vestrel MakeStartupCrusade BareWindow)" >&2; exit 1; }
done

work=$(mktemp -d)
# The server picks a display number no other server holds and writes it to fd 5.
Xvfb -displayfd 5 -screen 0 1280x1024x24 -nolisten tcp 5> "$work/display" >/dev/null 2>&1 &
xvfb=$!
trap 'kill "$xvfb" 2>/dev/null; rm -rf "$work"' EXIT
for _ in $(seq 200); do [ -s "$work/display" ] && break; sleep 0.05; done
[ -s "$work/display" ] || { echo "Xvfb did not start" >&2; exit 1; }
display=:$(head -1 "$work/display")
export DISPLAY=$display QT_QPA_PLATFORM=xcb VESTREL_PAINT_STAMPS=1

median() { sort -n | awk '{a[NR]=$1} END {print a[int((NR+1)/2)]}'; }

# Waits for a line of $1 matching $2, up to 20 s.
wait_for() {
  for _ in $(seq 400); do grep -q "$2" "$1" 2>/dev/null && return 0; sleep 0.05; done
  return 1
}

: > "$work/bare"
for _ in $(seq "$runs"); do
  : > "$work/log"
  start=$(date +%s%3N)
  HOME=$work "$bare" 2> "$work/log" &
  pid=$!
  wait_for "$work/log" "^stamp paint" || { echo "the bare window never painted" >&2; kill $pid; exit 1; }
  kill $pid; wait $pid 2>/dev/null || true
  echo $(( $(awk '/^stamp paint/ {print $3; exit}' "$work/log") - start )) >> "$work/bare"
done
echo "bare Qt window painted: $(median < "$work/bare") ms (the floor of splash_ms)"
printf "%-8s %12s %12s %14s %10s\n" people splash_ms load_ms first_person_ms peak_MB
for people in 1000 3000 9999; do
  home=$work/home$people
  mkdir -p "$home"
  HOME=$home "$make" "$home/Vestrel" "$people"
  : > "$work/splash" ; : > "$work/load" ; : > "$work/total" ; : > "$work/rss"
  for _ in $(seq "$runs"); do
    log=$work/log
    : > "$log"
    start=$(date +%s%3N)
    HOME=$home "$app" 2> "$log" &
    pid=$!
    wait_for "$log" "^stamp paint" || { echo "no splash painted" >&2; cat "$log" >&2; kill $pid; exit 1; }
    win=$(xdotool search --sync --onlyvisible --pid $pid --name '^Vestrel$' | head -1)
    xdotool key --window "$win" space 2>/dev/null || true
    wait_for "$log" "^stamp input" || { echo "the key never arrived" >&2; kill $pid; exit 1; }
    # The first window painted after the key that is not the splash: the edit screen.
    for _ in $(seq 400); do
      awk '{t=$0; sub(/^stamp [a-z]+ [0-9]+ ?/, "", t)} /^stamp input/ {i=1; next}
           i && /^stamp paint/ && t != "Vestrel" {f=1} END {exit !f}' "$log" && break
      sleep 0.05
    done
    hwm=$(awk '/VmHWM/ {print $2}' /proc/$pid/status)
    kill $pid; wait $pid 2>/dev/null || true
    awk -v start="$start" '
      {t=$0; sub(/^stamp [a-z]+ [0-9]+ ?/, "", t)}
      /^stamp paint/ && !splash {splash = $3}
      /^stamp input/ {input = $3}
      input && /^stamp paint/ && t != "Vestrel" && !edit {edit = $3}
      END {print splash - start > "'"$work/splash1"'"; print edit - input > "'"$work/load1"'";
           print (splash - start) + (edit - input) > "'"$work/total1"'"}' "$log"
    cat "$work/splash1" >> "$work/splash"; cat "$work/load1" >> "$work/load"; cat "$work/total1" >> "$work/total"
    echo $((hwm / 1024)) >> "$work/rss"
  done
  printf "%-8s %12s %12s %14s %10s\n" "$people" "$(median < "$work/splash")" "$(median < "$work/load")" \
    "$(median < "$work/total")" "$(sort -n "$work/rss" | tail -1)"
done
