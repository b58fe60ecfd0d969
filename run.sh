#!/usr/bin/env bash
# Installs what is missing, builds, and starts the machine. What follows ./run.sh is passed on: to the
# analyser on the command line when it is one of its sub-commands (./run.sh games), otherwise to the window.
set -euo pipefail
# The current directory stays the caller's: arguments may name files from there.
root=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
bin=$root/build/release/bin

show_analyser() {
    echo "The games this machine knows:"
    echo
    "$bin/tolvane-cli" games
    echo
    echo "The 32 ways to play a hand of Jacks or Better:"
    echo
    "$bin/tolvane-cli" hand "Jacks or Better" "AS KS QS JS 9H"
    echo
    echo "Go on with ./run.sh hand, classify, analyze, strategy, compare, meter, session, ruin or autoplay; ./run.sh help explains them."
}

"$root/tools/install-packages.sh"
"$root/tools/build.sh" release Tolvane tolvane-cli  # a player needs no tests

case ${1:-} in
    games | classify | hand | analyze | strategy | compare | meter | session | ruin | autoplay | help | --help | --version)
        exec "$bin/tolvane-cli" "$@"
        ;;
esac

if [[ -z ${DISPLAY:-} && -z ${WAYLAND_DISPLAY:-} ]]; then
    echo "There is no display to open a window on; here is the analyser instead."
else
    exec "$bin/Tolvane" "$@"
fi
echo
show_analyser
