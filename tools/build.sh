#!/usr/bin/env bash
# Configures and builds one preset: tools/build.sh release|dev|core|fuzz [TARGET ...], all of it without a
# target. Writes to standard error alone, so that what a program started afterwards prints can be
# redirected, and in full only when something fails.
set -euo pipefail
cd "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/.."  # CMake looks for presets in the current directory
preset=$1
shift
targets=()
[[ $# -eq 0 ]] || targets=(--target "$@")

if ! log=$(cmake --preset "$preset" 2>&1); then
    printf '%s\n' "$log" >&2
    exit 1
fi

# On a terminal Ninja keeps its progress to one line; in a log it would be a line per file.
quiet=(--quiet)
if [[ -t 2 ]]; then
    quiet=()
else
    echo "Building the preset $preset ..." >&2
fi
cmake --build --preset "$preset" "${targets[@]}" -- "${quiet[@]}" >&2
