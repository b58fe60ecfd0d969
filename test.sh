#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test; the exit code is ctest's. With --sanitize under
# AddressSanitizer and UBSan. Everything else goes to ctest: ./test.sh -R Hold. Needs no display.
set -euo pipefail
cd "$(dirname "$(realpath "${BASH_SOURCE[0]}")")"

preset=release
ctest_arguments=()
for argument in "$@"; do
    if [[ $argument == --sanitize ]]; then
        preset=dev
    else
        ctest_arguments+=("$argument")
    fi
done

tools/install-packages.sh test
tools/build.sh "$preset"

if [[ -z ${DISPLAY:-} && -z ${WAYLAND_DISPLAY:-} ]]; then
    export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
fi
# Without a stack a report of UBSan does not say which test's input led there.
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}
# A run of no tests is a mistake, in the build or in a -R, never a success.
ctest --preset "$preset" --no-tests=error --parallel "$(nproc)" "${ctest_arguments[@]}"
