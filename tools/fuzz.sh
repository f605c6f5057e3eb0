#!/usr/bin/env bash
# Searches with the fuzz targets for inputs that break a guarantee: tools/fuzz.sh MINUTES [TARGET]
# runs each target, or that one, for so many minutes; stops with 1 where anything was found. The
# inputs found are in build/fuzz/found, those that extend the coverage in build/fuzz/corpus.
#   tools/fuzz.sh --keep [TARGET]   puts the least that reaches as far into tests/fuzz/corpus, beside
#                                   the inputs that have a name of their own
set -euo pipefail
cd "$(dirname "$0")/.."
(($#)) || { sed -n '2,6s/^# \{0,1\}//p' "$0"; exit 2; }
what=$1
targets=(${2:-$(cd tests/fuzz && ls -d *_fuzz.cpp)})
build=build/fuzz

tools/install-deps.sh --fuzz
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
export QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES='*=false' XDG_RUNTIME_DIR=$PWD/$build/runtime
export XDG_CONFIG_HOME=$XDG_RUNTIME_DIR ASAN_OPTIONS=detect_leaks=0
mkdir -p -m 700 "$XDG_RUNTIME_DIR"
mkdir -p "$build/found"

found=0
for target in "${targets[@]}"; do
    target=${target%_fuzz.cpp}
    program=$build/tests/${target}_fuzz
    kept=tests/fuzz/corpus/$target
    mine=$build/corpus/$target
    mkdir -p "$mine" "$kept"
    if [[ $what == --keep ]]; then
        rm -rf "$build/merged" && mkdir "$build/merged"
        "$program" -merge=1 -use_counters=0 -timeout=25 "$build/merged" "$mine" "$kept" 2>/dev/null
        find "$kept" -type f -regextype egrep -regex '.*/[0-9a-f]{40}' -delete
        find "$build/merged" -type f -size -64k -exec cp {} "$kept" \;
        echo "$target: $(ls "$kept" | wc -l) inputs, $(du -sb "$kept" | cut -f1) bytes"
        continue
    fi
    log=$build/found/$target.log
    status=0
    nice -n 19 "$program" -max_total_time=$((what * 60)) -timeout=25 -rss_limit_mb=4096 \
        -print_final_stats=1 -artifact_prefix="$build/found/$target-" "$mine" "$kept" \
        >"$log" 2>&1 || status=$?
    runs=$(sed -n 's/stat::number_of_executed_units: *//p' "$log")
    echo "$target: $what minutes, ${runs:-?} runs, $( ((status)) && echo "FOUND, see $log" || echo clean)"
    ((status == 0)) || found=1
done
exit $found
