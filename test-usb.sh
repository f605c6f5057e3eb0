#!/usr/bin/env bash
# Tries the panel and its library for instruments on USB against the driver of a real kernel, in a
# virtual machine that needs no hardware and no rights: ./test-usb.sh [TEST [FUNCTION...]]
# Ends with 77 where Debian's kernel package cannot be had. The tests: see tests/usb/jobs.sh.
set -euo pipefail
cd "$(dirname "$0")"

tools/install-deps.sh --usb
kernel=$(tests/usb/fetch_kernel.sh)
cmake --preset release
cmake --build --preset release
# By a clock that counts instructions figures do not depend on what else this computer does.
if [[ ${1:-} == bench ]]; then
    export KLV_MACHINE_OPTIONS="-icount shift=1,sleep=off"
fi
tests/usb/run_machine.sh "$kernel" "$BASH" "$PWD/tests/usb/jobs.sh" "$PWD" "$PWD/build/release" "$@"
