#!/usr/bin/env bash
# Runs clang-tidy over the tracked sources, or over the ones named. Usage: tools/tidy.sh [FILE.cpp ...]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# The clang build: its command lines are the ones that clang-tidy understands. Generated headers must exist as well.
tools/build.sh asan
if [ $# -gt 0 ]; then
    printf '%s\0' "$@"
else
    git ls-files -z '*.cpp'
fi | xargs -0 -r -P "$(nproc)" -n 1 clang-tidy-14 -p build/asan --quiet --warnings-as-errors='*'
