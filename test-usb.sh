#!/usr/bin/env bash
# Tries the panel and its library for instruments on USB against the driver of a real kernel, in a
# virtual machine that needs no hardware and no rights: ./test-usb.sh [TEST [FUNCTION...]]
# Ends with 77 where Debian's kernel package cannot be had. The tests: see tests/usb/jobs.sh.
set -euo pipefail
cd "$(dirname "$0")"

tools/install-deps.sh --usb
kernel=$(tests/usb/fetch_kernel.sh)
cmake --preset release
cmake --build --preset release --target usb_tests
# By a clock that counts instructions figures depend less on what else this computer does; at one a
# nanosecond it is slower than any computer of today. While it waits it goes as any clock: else the
# host's files would come late for every time-out.
if [[ ${1:-} == bench ]]; then
    export KLV_MACHINE_OPTIONS="-icount shift=0,sleep=on"
fi
tests/usb/run_machine.sh "$kernel" "$BASH" "$PWD/tests/usb/jobs.sh" "$PWD" "$PWD/build/release" "$@"
