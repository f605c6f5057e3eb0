#!/usr/bin/env bash
# Formats all C++ of the project; with --check only lists what is not formatted.
set -euo pipefail
cd "$(dirname "$0")/.."

action=(-i)
[[ ${1:-} == --check ]] && action=(--dry-run -Werror)
git ls-files -z --cached --others --exclude-standard '*.h' '*.cpp' |
    xargs -0 clang-format-14 "${action[@]}"
