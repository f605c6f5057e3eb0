#!/usr/bin/env bash
# Runs a Windows test under Wine, on fonts as on Linux: tests/wine.sh TEST.exe [argument...]
set -euo pipefail

export QT_QPA_FONTDIR='Z:\usr\share\fonts\truetype\dejavu'
# Otherwise results go to a debugger.
export QT_FORCE_STDERR_LOGGING=1

# Wine keeps Qt's variables from the program; its command interpreter sets them again.
settings=()
for name in $(compgen -e QT_); do settings+=(set "$name=${!name}&"); done
test=Z:${1//\//\\}
shift
exec wine cmd /D /C "${settings[@]}" "$test" "$@"
