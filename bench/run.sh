#!/usr/bin/env bash
# Prints what the panel costs on this machine: ratios within one run, since machines differ.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset release >/dev/null
cmake --build --preset release --target link_bench list_bench log_bench window_bench >/dev/null
export QT_QPA_PLATFORM=offscreen
XDG_CONFIG_HOME=$(mktemp -d)
# In memory, as on a desktop: connecting writes a lock there.
XDG_RUNTIME_DIR=$(mktemp -d -p /dev/shm)
export XDG_CONFIG_HOME XDG_RUNTIME_DIR
trap 'rm -rf "$XDG_CONFIG_HOME" "$XDG_RUNTIME_DIR"' EXIT
build/release/bench/link_bench
build/release/bench/log_bench
/usr/bin/python3 bench/pyvisa_bench.py build/release/demo/libVeVISA32.so
build/release/bench/window_bench
build/release/bench/list_bench
