#!/usr/bin/env bash
# Installs the build into a folder of its own, starts the program there on the simulated instrument,
# and checks what a user of the package gets: test_installed.sh CMAKE BUILD VERSION
set -euo pipefail
cmake=$1 build=$2 version=$3

work=$(mktemp -d)
program=
trap '[[ -z $program ]] || { kill "$program"; wait "$program"; } 2>/dev/null || true
    rm -rf "$work"' EXIT
fail() { echo "$*" >&2; exit 1; }

DESTDIR=$work/root "$cmake" --install "$build" --prefix /usr >/dev/null
root=$work/root/usr
[[ $(ls -A "$work/root") == usr ]] || fail "Installed outside the prefix: $(ls -A "$work/root")"
cmp "$root/lib/klv/license.txt" "$root/share/doc/klv/copyright"

# Nothing of the build tree or of this user's own set-up may help it. In a sanitized build leaks are
# checked elsewhere.
cd /
as_user=(env -i HOME="$work/home" TMPDIR="$work" PATH=/usr/bin:/bin LC_ALL=C.UTF-8
    QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="$work/run" ASAN_OPTIONS=detect_leaks=0)
mkdir -m 700 "$work/home" "$work/run"
[[ $("${as_user[@]}" "$root/bin/klv" --version) == "KLV $version" ]] || fail "Another version"

help=$("${as_user[@]}" "$root/bin/klv" --help)
languages=(. ru)
command -v man >/dev/null || { echo "No man here: its pages are not looked at"; languages=(); }
for language in "${languages[@]}"; do
    page=$root/share/man/$language/man1/klv.1.gz
    warnings=$("${as_user[@]}" man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
    [[ -z $warnings ]] || fail "$page: $warnings"
    text=$("${as_user[@]}" man -E UTF-8 -l "$page")
    for option in $(grep -oE -- '--[a-z-]+' <<<"$help"); do
        [[ $text == *"$option"* ]] || fail "$page does not mention $option"
    done
done

# The library for real instruments, which this computer need not have.
own=$root/lib/klv/usbtmc/libVeVISA32.so
count=$(nm -D --defined-only "$own" | grep -c ' T vi[A-Z]') || true
((count == 78)) || fail "$own has $count functions of VISA"

icon=$(sed -n 's/^Icon=//p' "$root"/share/applications/*.desktop)
for image in 16x16/apps/$icon.png 512x512/apps/$icon.png scalable/apps/$icon.svg; do
    [[ -s $root/share/icons/hicolor/$image ]] || fail "No icon $image"
done

"${as_user[@]}" KLV_DEMO_TRACE=1 "$root/bin/klv" --demo --clean --screenshot "$work/panel.png" \
    >"$work/log" 2>&1 &
program=$!
for ((tenths = 0; tenths < 600; ++tenths)); do
    [[ ! -s $work/panel.png ]] || break
    kill -0 "$program" 2>/dev/null || break
    sleep 0.1
done
if [[ ! -s $work/panel.png ]] || ! grep -q '\*IDN?' "$work/log"; then
    cat "$work/log" >&2
    fail "The installed program did not connect"
fi
