#!/usr/bin/env bash
# Runs clang-tidy over all C++ of this platform, or over the files given.
set -euo pipefail
cd "$(dirname "$0")/.."

# The generated headers must be there.
cmake --preset release
cmake --build --preset release
if (($#)); then
    files=("$@")
else
    mapfile -t files < <(git ls-files '*.cpp' ':!*_win.cpp')
fi
printf '%s\0' "${files[@]}" |
    xargs -0 -n 1 -P "$(nproc)" clang-tidy-14 -p build/release --quiet
