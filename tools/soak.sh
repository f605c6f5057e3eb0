#!/usr/bin/env bash
# Random clicks, keys, texts, faults and cables on the panel over the simulated instrument, built with
# the sanitizers: tools/soak.sh MINUTES [SEED]. At every calm point panel and instrument are compared;
# the first difference ends it, with the seed and the last actions.
set -euo pipefail
cd "$(dirname "$0")/.."
(($#)) || { sed -n '2,4s/^# \{0,1\}//p' "$0"; exit 2; }
seed=${2:-$RANDOM}

tools/install-deps.sh
cmake --preset asan >/dev/null
cmake --build --preset asan --target panel_soak
private=$(mktemp -d)
trap 'rm -rf "$private"' EXIT
export XDG_CONFIG_HOME=$private XDG_RUNTIME_DIR=$private HOME=$private QT_QPA_PLATFORM=offscreen
export QT_LOGGING_RULES='*=false'
export LSAN_OPTIONS=suppressions=$PWD/tests/leaks.txt
# A run that hangs prints where.
export ASAN_OPTIONS=handle_abort=1
timeout --signal=ABRT $(($1 * 60 + 180)) build/asan/tests/panel_soak "$1" "$seed"
