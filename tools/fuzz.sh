#!/usr/bin/env bash
# Runs every fuzz target for a while from its corpus in fuzz/corpus/TARGET, as many at a time as there are processors, and
# fails on any finding, which is left in build/fuzz/findings. New inputs stay in build/fuzz/corpus, so that a run never
# changes the checkout.
# Usage: tools/fuzz.sh [SECONDS]     for each target; without it 60
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
export seconds=${1:-60}

fuzz() {
    local name=$1
    local seeds=fuzz/corpus/$name found=build/fuzz/corpus/$name findings=build/fuzz/findings
    [ -d "$seeds" ] || { echo "fuzz: $name has no corpus in $seeds" >&2 && return 1; }
    mkdir -p "$found" "$findings"
    if ! "build/asan/bin/$name" -max_total_time="$seconds" -timeout=25 -rss_limit_mb=4096 -print_final_stats=1 \
        -artifact_prefix="$findings/$name-" "$found" "$seeds" >"build/fuzz/$name.log" 2>&1; then
        tail -n 60 "build/fuzz/$name.log" >&2
        echo "fuzz: $name failed; all of it is in build/fuzz/$name.log" >&2
        return 1
    fi
    echo "fuzz: $name for $seconds s, inputs: $(sed -n 's/^stat::number_of_executed_units: *//p' "build/fuzz/$name.log")"
}
export -f fuzz

tools/build.sh asan fuzzers
mapfile -d '' -t targets < <(find build/asan/bin -name 'fuzz_*' -type f -executable -printf '%f\0' | sort -z)
[ ${#targets[@]} -gt 0 ] || { echo "fuzz: no target was built" >&2 && exit 1; }
printf '%s\0' "${targets[@]}" | xargs -0 -P "$(nproc)" -n 1 bash -c 'fuzz "$1"' fuzz
