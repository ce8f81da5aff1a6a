#!/usr/bin/env bash
# Runs every fuzz target for a while from its corpus in fuzz/corpus/TARGET and fails on the first finding, which is
# left in build/fuzz/findings. New inputs stay in build/fuzz/corpus, so that a run never changes the checkout.
# Usage: tools/fuzz.sh [SECONDS]     for each target; without it 60
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
seconds=${1:-60}

fuzz() {
    local name=$1
    local seeds=fuzz/corpus/$name found=build/fuzz/corpus/$name findings=build/fuzz/findings
    [ -d "$seeds" ] || { echo "fuzz: $name has no corpus in $seeds" >&2 && return 1; }
    mkdir -p "$found" "$findings"
    echo "fuzz: $name for $seconds s"
    if ! "build/fuzz/bin/$name" -max_total_time="$seconds" -timeout=25 -rss_limit_mb=4096 -print_final_stats=1 \
        -artifact_prefix="$findings/$name-" "$found" "$seeds" >"build/fuzz/$name.log" 2>&1; then
        tail -n 60 "build/fuzz/$name.log" >&2
        return 1
    fi
    grep -E 'stat::(number_of_executed_units|average_exec_per_sec)' "build/fuzz/$name.log"
}

tools/build.sh fuzz
status=0
count=0
for binary in build/fuzz/bin/fuzz_*; do
    [ -x "$binary" ] || continue
    count=$((count + 1))
    fuzz "$(basename "$binary")" || status=1
done
[ "$count" -gt 0 ] || { echo "fuzz: no target was built" >&2 && exit 1; }
exit "$status"
