#!/usr/bin/env bash
# Works with the Windows program as a user would, by keys in a real window: try_program.sh KLV.EXE
# Needs a display and a Wine prefix.
set -euo pipefail
program=$1
work=$(mktemp -d)
copies=()
stop_copies() {
    ((${#copies[@]} == 0)) || kill "${copies[@]}" 2>/dev/null || true
    wait
    rm -rf "$work"
}
trap stop_copies EXIT
fail() {
    echo "$*" >&2
    tail -n 20 "$work"/*.trace >&2
    exit 1
}

source "$(dirname "$0")/wait_for.sh"
has_title() { xdotool search --name "$1" >"$work/window" 2>&1; }
has_sent() { grep -qF -- "<- $1" "$work/first.trace"; }
is_over() { ! kill -0 "$1" 2>/dev/null; }

# start NAME: a copy of the program over the one simulated instrument; its traffic in NAME.trace.
printf '[4711]\nmodel=KLV-6G\n' >"$work/instruments.ini"
start() {
    KLV_DEMO_TRACE=1 KLV_DEMO_FILE="Z:$work/instruments.ini" wine "$program" --demo --clean \
        --language en --screenshot "Z:$work/$1.png" >"$work/$1.trace" 2>&1 &
    copies+=($!)
}

start first
wait_for has_title '^KLV-6G \(4711\)$' || fail "It did not connect"
wait_for test -s "$work/first.png" || fail "It made no picture"
python3 - "$work/first.png" <<'PYTHON'
import struct, sys, zlib
data = open(sys.argv[1], 'rb').read()
width, height = struct.unpack('>II', data[16:24])
assert width >= 700 and height >= 400, (width, height)
assert len(data) > 20000, 'an empty picture: %d bytes' % len(data)
PYTHON

# A click on its caption makes the window the active one.
window=$(head -n 1 "$work/window")
activate() { xdotool mousemove --window "$window" 150 22 click 1; }

activate
xdotool key ctrl+f type 2500000000
xdotool key Return
wait_for has_sent 'FREQ 2500000000.000000 Hz;FREQ?' || fail "The frequency was not sent"

# The instrument is taken: a second copy neither lists nor disturbs it.
start second
wait_for test -s "$work/second.png" || fail "The second copy made no picture"
! grep -q -- '<-' "$work/second.trace" || fail "The second copy talked to the instrument"
kill "${copies[1]}"
wait_for is_over "${copies[1]}" || fail "The second copy did not end"

activate
xdotool key ctrl+q
wait_for is_over "${copies[0]}" || fail "It did not quit"
has_sent '*RST' && has_sent 'MEM:MSC ON' || fail "The instrument was not handed back"
echo "The program works"
