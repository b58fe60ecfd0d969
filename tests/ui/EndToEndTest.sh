#!/usr/bin/env bash
# Plays the built program on a virtual screen as a person would: EndToEndTest.sh FOLDER, with the folder of
# the program. Ten hands with real keys, quit, look into the game file; start again and find the credits.
set -euo pipefail
program_folder=$1

if [[ -z ${TOLVANE_SCREEN:-} ]]; then
    TOLVANE_SCREEN=$(mktemp -d)  # the picture is a file in it
    export TOLVANE_SCREEN
    exec xvfb-run -a -s "-screen 0 1024x768x24 -fbdir $TOLVANE_SCREEN" "$0" "$@"
fi

home=$(mktemp -d)
trap 'jobs -p | xargs -r kill 2>/dev/null || true; wait; rm -rf "$home" "$TOLVANE_SCREEN"' EXIT
cp "$program_folder"/{Tolvane,*.114,*.wav} "$home"
export HOME=$home XDG_CONFIG_HOME=$home/config XDG_RUNTIME_DIR=$home QT_QPA_PLATFORM=xcb
export PULSE_SERVER=unix:/nowhere  # what is tested, nobody wants to hear
unset XDG_DATA_HOME
openbox >/dev/null 2>&1 &

fail() { echo "FAILED: $*"; cat "$home"/*.qdx "$home/output" 2>/dev/null; exit 1; }

# Looks every tenth of a second, for at most twenty seconds.
wait_until() {
    for _ in {1..200}; do
        "$@" >/dev/null 2>&1 && return 0
        sleep 0.1
    done
    fail "never happened: $*"
}

# start TITLE-PATTERN ARGUMENT...
start() {
    local title=$1
    shift
    (cd "$home" && exec ./Tolvane "$@" >output 2>&1) &
    program=$!
    wait_until xdotool search --onlyvisible --name "$title - Tolvane"
    window=$(xdotool search --onlyvisible --name "$title - Tolvane" | tail -1)
    wait_until focused "$window"
    wait_until still
}

focused() { [[ $(xdotool getwindowfocus) == "$1" ]] || { xdotool windowfocus "$1"; return 1; }; }
no_dialog() { ! xdotool search --onlyvisible --name '^Dialog$'; }
picture() { md5sum "$TOLVANE_SCREEN"/*_screen0; }
changed() { [[ $(picture) != "$1" ]]; }
still() {
    local seen
    seen=$(picture)
    sleep 0.1
    [[ $(picture) == "$seen" ]]
}

# Every key changes the picture, and the next one is pressed when that is done.
key() {
    local before
    before=$(picture)
    xdotool key "$@"
    wait_until changed "$before"
    wait_until still
}

stored() { grep -qx "$1" "$home/Default.qdx"; }
ended() { ! kill -0 "$program" 2>/dev/null; }

quit() {
    key alt+f
    key x
    wait_until ended
    wait "$program" || fail "the program ended with status $?"
}

# A window that is there before the window manager may never be shown by it.
wait_until xdotool get_desktop
start "Jacks or Better"
key alt+s  # the Speed menu, whose first entry is Fast
key Return
key d  # there are no credits: dollars are asked for
wait_until xdotool search --onlyvisible --name '^Dialog$'
key Return
wait_until no_dialog
wait_until focused "$window"
for _ in {1..10}; do
    key d
    key 1  # any card: what is held does not matter
    key d
done
quit

stored "Speed=3" || fail "the speed was not stored"
stored "CreditsEntered=100" || fail "the dollars were not stored"
stored "HandsPlayed=10" || fail "ten hands were not counted"
stored "CreditsPlayed=50" || fail "ten bets were not counted"
won=$(sed -n 's/^CreditsWon=//p' "$home/Default.qdx")
credits=$((100 - 50 + won))
stored "Credits=$credits" || fail "100 dollars less 50 coins and $won won are not $credits"

start "Jacks or Better"
key d
key d
quit
stored "HandsPlayed=11" || fail "the eleventh hand was not counted"
won_then=$(sed -n 's/^CreditsWon=//p' "$home/Default.qdx")
stored "Credits=$((credits - 5 + won_then - won))" || fail "the second start did not go on with $credits credits"

# A game file named at the start is gone on in, then and the next time; also when the program runs already.
printf '[main]\nGameName=Deuces Wild\nGameID=310\nCredits=7\n' >"$home/holiday.qdx"
start "Jacks or Better"
(cd "$home" && ./Tolvane holiday.qdx >>output 2>&1) || fail "a second start ended with status $?"
wait_until xdotool search --onlyvisible --name "Deuces Wild .holiday.qdx. - Tolvane"
wait_until still
quit
start "Deuces Wild .holiday.qdx."
quit
grep -qx "Credits=7" "$home/holiday.qdx" || fail "the named game file lost its credits"
[[ ! -s $home/output ]] || fail "the program had something to say"
echo "Played eleven hands, from 100 credits to $((credits - 5 + won_then - won))."
