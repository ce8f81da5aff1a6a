#!/usr/bin/env bash
# Fails when a tracked C++ source is not as clang-format would leave it. Usage: tools/check-format.sh [--fix]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

mode=(--dry-run -Werror)
[ "${1-}" != --fix ] || mode=(-i)
# Files that are tracked but deleted in the working tree are no concern here.
git ls-files -z --deduplicate '*.h' '*.cpp' | while IFS= read -r -d '' file; do
    [ ! -f "$file" ] || printf '%s\0' "$file"
done | xargs -0 -r clang-format-14 "${mode[@]}"
