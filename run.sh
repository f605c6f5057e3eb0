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

# Qt's own VNC platform listens on every network interface and has no option against it. Here screen
# and keys are this user's alone: the viewer's socket is in a folder that nobody else may enter,
# and the X server lets in only who can read the cookie there.
tools/install-deps.sh --screen
private=$(mktemp -d -t klv-screen-XXXXXX)
trap 'kill $(jobs -p) "${screen_pid:-}" 2>/dev/null || true; wait; rm -rf "$private"' EXIT
export XAUTHORITY=$private/cookie
: >"$XAUTHORITY"
cookie=$(mcookie)
# The server looks for the cookie only, whatever display it is noted for.
xauth -q add :0 . "$cookie"
exec {screen}< <(exec Xtigervnc -displayfd 1 -rfbunixpath "$private/vnc" -rfbport -1 \
    -nolisten tcp -auth "$XAUTHORITY" -SecurityTypes None \
    -geometry 1400x900 -depth 24 -desktop "KLV panel" 2>build/release/screen.log)
screen_pid=$!
if ! read -r number <&"$screen"; then
    echo "The virtual screen did not start: see build/release/screen.log" >&2
    exit 1
fi
xauth -q add ":$number" . "$cookie"
cat <<END
No display here: the panel runs on a virtual screen, which only you can see and work.
  here:               vncviewer $private/vnc
  from elsewhere:     ssh -L 5900:$private/vnc $HOSTNAME, then vncviewer 127.0.0.1:5900
  picture:            build/release/panel.png
Ctrl+C ends it.
END
export DISPLAY=:$number QT_QPA_PLATFORM=xcb
"${program[@]}" --screenshot build/release/panel.png "$@" &
wait $!
