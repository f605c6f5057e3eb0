#!/usr/bin/env bash
# Makes the pictures of the manual and of README.md, in both languages and themes.
#   docs/manual/pictures.sh [BUILD_FOLDER]
# Needs Xvfb and pngquant.
set -euo pipefail
cd "$(dirname "$0")/../.."
build=${1:-build/release}

command -v pngquant >/dev/null || { echo "Install pngquant." >&2; exit 1; }
cmake --build "$build" --target manual_pictures

work=$(mktemp -d)
exec {screen}< <(exec Xvfb -displayfd 1 -screen 0 1920x1200x24 -nolisten tcp 2>"$work/screen.log")
screen_pid=$!
trap 'kill "$screen_pid" 2>/dev/null || true; rm -rf "$work"' EXIT
read -r number <&"$screen" || { cat "$work/screen.log" >&2; exit 1; }
# Empty settings, documents and locks.
export DISPLAY=:$number QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=1
export HOME=$work XDG_CONFIG_HOME=$work XDG_RUNTIME_DIR=$work

make_pictures() { # LANGUAGE THEME
    local folder=$work/$1-$2
    mkdir "$folder"
    "$build/docs/manual_pictures" "$1" "$2" "$folder"
    pngquant --force --ext .png --quality 80-100 --strip "$folder"/*.png
    # The next one starts without the profiles of this one.
    rm -rf "$work/Veltro KLV" "$work"/*/"Veltro KLV"
}
for language in en ru; do
    make_pictures "$language" light
done
make_pictures en dark

mv "$work/en-light/overview.png" docs/images/panel.png
mv "$work/en-dark/overview.png" docs/images/panel-dark.png
rm "$work/ru-light/overview.png"
for language in en ru; do
    cp "$work/$language-light"/*.png "docs/manual/$language/images/"
done
