#!/usr/bin/env bash
# Builds the panel and starts it on the simulated instrument; arguments go to the program.
# Without a display it runs on a virtual screen that VNC shows on this computer only.
set -euo pipefail
cd "$(dirname "$0")"

tools/install-deps.sh
cmake --preset release
cmake --build --preset release

export KLV_DEMO_TRACE=1
program=(build/release/bin/klv --demo)
if [[ -z ${DISPLAY:-} && -n ${WAYLAND_DISPLAY:-} ]]; then
    tools/install-deps.sh --wayland
    export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-wayland}
fi
if [[ -n ${DISPLAY:-}${QT_QPA_PLATFORM:-} ]]; then
    exec "${program[@]}" "$@"
fi

# Qt's own VNC platform listens on every network interface and cannot be told otherwise.
tools/install-deps.sh --screen
exec {screen}< <(exec Xtigervnc -displayfd 1 -localhost -UseIPv6=0 -SecurityTypes None \
    -geometry 1400x900 -depth 24 -desktop "KLV panel" 2>build/release/screen.log)
screen_pid=$!
trap 'kill $(jobs -p) "$screen_pid" 2>/dev/null || true; wait' EXIT
if ! read -r number <&"$screen"; then
    echo "The virtual screen did not start: see build/release/screen.log" >&2
    exit 1
fi
port=$((5900 + number))
cat <<END
No display here: the panel runs on a virtual screen, port $port of 127.0.0.1.
  here:               vncviewer 127.0.0.1:$port
  from elsewhere:     ssh -L $port:127.0.0.1:$port $HOSTNAME, then the same
  picture:            build/release/panel.png
Ctrl+C ends it.
END
export DISPLAY=:$number QT_QPA_PLATFORM=xcb
"${program[@]}" --screenshot build/release/panel.png "$@" &
wait $!
