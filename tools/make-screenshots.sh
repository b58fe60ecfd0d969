#!/usr/bin/env bash
# Takes the pictures of docs/screenshots anew, from the program as it is built now. Needs no display.
set -euo pipefail
cd "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/.."
tools/install-packages.sh test
tools/build.sh release MakeScreenshots
QT_QPA_PLATFORM=offscreen TOLVANE_SCREENSHOTS=$PWD/docs/screenshots build/release/bin/MakeScreenshots
