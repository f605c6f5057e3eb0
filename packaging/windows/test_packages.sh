#!/usr/bin/env bash
# Makes the Windows packages and tries them as a user would, under Wine in a virtual screen:
# test_packages.sh CPACK BUILD VERSION
set -euo pipefail
cpack=$1 build=$2 version=$3

if [[ -z ${KLV_VIRTUAL_SCREEN:-} ]]; then
    KLV_VIRTUAL_SCREEN=1 exec xvfb-run -a -s "-screen 0 1400x900x24" "$0" "$@"
fi
work=$(mktemp -d)
export WINEPREFIX=$work/prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
program=
stop_program() {
    [[ -z $program ]] || kill "$program" 2>/dev/null || true
    [[ -z $program ]] || wait "$program" 2>/dev/null || true
    program=
}
trap 'stop_program; wineserver -k 2>/dev/null || true; rm -rf "$work"' EXIT
fail() { echo "$*" >&2; exit 1; }

source "$(dirname "$0")/../../tests/windows/wait_for.sh"

# starts FOLDER: the program there connects to the simulated instrument, which gives the window its
# title, and draws its window.
is_connected() { xdotool search --name '^KLV-20G ' >"$work/windows" 2>&1; }
starts() {
    local picture=$work/panel.png
    rm -f "$picture"
    (cd / && exec wine "$1/klv.exe" --demo --clean --screenshot "Z:$picture") \
        >"$work/log" 2>&1 &
    program=$!
    if ! wait_for is_connected || ! wait_for test -s "$picture"; then
        cat "$work/log" >&2
        fail "The program did not connect in $1"
    fi
    stop_program
    wineserver -k
    wineserver -w
}

keys=('HKLM\Software\Veltro' 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall')
menu_entries() { find "$WINEPREFIX" -name '*.lnk' -path '*Start Menu*KLV panel*' | sort; }
in_registry() { wine reg query "$1" /s 2>/dev/null | grep -i 'klv panel'; }

wineboot --init
"$cpack" --config "$build/CPackConfig.cmake" -B "$work" >"$work/cpack.log" 2>&1 ||
    { cat "$work/cpack.log" >&2; exit 1; }

python3 -m zipfile -e "$work/klv-$version-win64.zip" "$work/a folder"
starts "$work/a folder/klv-$version-win64"

# installs_and_leaves FOLDER OPTION...: the second installation uninstalls the first.
is_gone() { [[ ! -e $folder ]]; }
installs_and_leaves() {
    folder=$1
    shift
    wine "$installer" /S "$@"
    wine "$installer" /S "$@"
    diff <(cd "$work/a folder/klv-$version-win64" && find . -type f | sort) \
        <(cd "$folder" && find . -type f ! -name Uninstall.exe | sort)
    entries=$(menu_entries)
    [[ $(wc -l <<<"$entries") == 3 ]] || fail "Start menu: $entries"
    for key in "${keys[@]}"; do
        in_registry "$key" >/dev/null || fail "Nothing in $key"
    done
    starts "$folder"

    wine "$folder/Uninstall.exe" /S
    wait_for is_gone || fail "Left: $(find "$folder")"
    wineserver -w
    entries=$(menu_entries)
    [[ -z $entries ]] || fail "Left: $entries"
    for key in "${keys[@]}"; do
        left=$(in_registry "$key") && fail "Left in $key: $left"
    done
    ! wine reg query "${keys[0]}" >/dev/null 2>&1 || fail "Left: ${keys[0]}"
}
installer=$work/klv-$version-win64.exe
installs_and_leaves "$WINEPREFIX/drive_c/Program Files/KLV panel"
installs_and_leaves "$WINEPREFIX/drive_c/KLV" '/D=C:\KLV'
echo "Zip and installer work"
