#!/usr/bin/env bash
# Builds the Windows program, its tests and its packages, and tries them under Wine in a virtual
# screen: ./test-windows.sh
set -euo pipefail
cd "$(dirname "$0")"

tools/install-deps.sh --windows
cmake --preset windows
cmake --build --preset windows --target package

export WINEPREFIX=$PWD/build/windows/wine WINEDEBUG=-all
# No downloads, and no entries in the desktop's menu.
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
# shellcheck disable=SC2016  # expanded in the screen's shell
exec xvfb-run -a -s "-screen 0 1600x1200x24" bash -euc '
    wineserver -k || true
    wineboot --init
    # There is no window manager to wait for.
    wine reg add "HKCU\Software\Wine\X11 Driver" /v Managed /d N /f
    # One server for all tests; its services, and those of a program with a window, are started
    # here: they would keep the output of the test that starts them open.
    wineserver -k -w || true
    wineserver -p
    wine cmd /D /C exit </dev/null >/dev/null 2>&1
    timeout 60 wine build/windows/tests/form_test.exe </dev/null >/dev/null 2>&1 || true
    trap "wineserver -k" EXIT
    ctest --preset windows'
