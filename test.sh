#!/usr/bin/env bash
# Builds everything and runs every test: ./test.sh [release|debug|asan]
set -euo pipefail
cd "$(dirname "$0")"
preset=${1:-release}

tools/install-deps.sh
cmake --preset "$preset"
cmake --build --preset "$preset"
# Many a test only waits; each has settings, locks and sockets of its own.
ctest --preset "$preset" -j "$(($(nproc) + 1))"
