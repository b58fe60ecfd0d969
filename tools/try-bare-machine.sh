#!/usr/bin/env bash
# Proves the list of packages on a machine that has none: makes a bare root, runs ./run.sh and ./test.sh of the
# last commit in it, packs the program and installs the package in a second bare root. Says what failed and
# what was missing; exit code 0 when that is nothing.
#     tools/try-bare-machine.sh [SUITE [OPTION ...]]
# The suite is this machine's, from its own package sources, unless another is named: that one comes from where
# mmdebstrap looks for it, with what options it is given (noble --components=main,universe). Needs mmdebstrap,
# root or sudo, 3 GB in /var/tmp and the network, and takes about a quarter of an hour on two idle cores.
# Everything it made is gone afterwards.
set -euo pipefail
cd "$(dirname "$(realpath "${BASH_SOURCE[0]}")")/.."
# shellcheck source=/dev/null
. /etc/os-release
own_suite=$VERSION_CODENAME
suite=${1:-$own_suite}
options=("${@:2}")

as_root=()
[[ $EUID -eq 0 ]] || as_root=(sudo)
command -v mmdebstrap >/dev/null || {
    echo "There is no mmdebstrap here; apt-get install mmdebstrap." >&2
    exit 1
}
work=$(mktemp -d /var/tmp/bare-machine.XXXXXX)  # /tmp may be small, or allow no devices
chmod 755 "$work"                               # apt fetches as a user of its own
root=$work/machine
problems=()
steps=0
job=  # the process group of the step that runs

clean_up() {
    [[ -z $job ]] || "${as_root[@]}" kill -KILL -- "-$job" || true
    wait
    "${as_root[@]}" rm -rf --one-file-system "$work"
}
trap clean_up EXIT
trap 'exit 130' INT TERM HUP

say() { printf '\n=== %s\n' "$*"; }

# Prints the lines of the package sources of this machine's own suite and its updates, nobody else's.
own_sources() {
    # shellcheck disable=SC2016  # apt-get fills these in
    apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' |
        grep -E "^deb [^ ]+ ${own_suite}[ -]" | sort -u
}

make_base() {
    local proxy='' sources=()
    eval "$(apt-config shell proxy Acquire::http::Proxy)"
    [[ -z $proxy ]] || options+=(--aptopt="Acquire::http::Proxy \"$proxy\"")
    if [[ $suite == "$own_suite" ]]; then
        own_sources >"$work/sources.list"
        sources=("$work/sources.list")
    fi
    "${as_root[@]}" env TMPDIR="$work" mmdebstrap --variant=minbase --include=apt "${options[@]}" \
        "$suite" "$work/base.tar" "${sources[@]}" 2>&1
}

# new_root FOLDER: unpacks the base into it.
new_root() {
    "${as_root[@]}" mkdir "$1"
    "${as_root[@]}" tar -xf "$work/base.tar" -C "$1"
    "${as_root[@]}" cp -L /etc/resolv.conf "$1/etc/resolv.conf"
}

# in_root FOLDER COMMAND: a line of the shell, as root of that machine, which has no display and no settings.
# The mounts, and whatever the command leaves running, end with their name spaces, however this script ends.
in_root() {
    # shellcheck disable=SC2016  # for the shell within
    "${as_root[@]}" unshare --mount --pid --ipc --fork --kill-child bash -euc '
        mount -t proc proc "$1/proc"
        mount -t tmpfs -o mode=755 tmpfs "$1/dev"
        for node in null zero full random urandom tty; do
            touch "$1/dev/$node"
            mount --bind "/dev/$node" "$1/dev/$node"
        done
        mkdir "$1/dev/pts" "$1/dev/shm"
        mount -t devpts -o newinstance,ptmxmode=666 devpts "$1/dev/pts"
        mount -t tmpfs -o mode=1777 tmpfs "$1/dev/shm"
        ln -s pts/ptmx "$1/dev/ptmx"
        ln -s /proc/self/fd "$1/dev/fd"
        for stream in 0:stdin 1:stdout 2:stderr; do
            ln -s "/proc/self/fd/${stream%:*}" "$1/dev/${stream#*:}"
        done
        exec env -i HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
            chroot "$1" bash -euc "$2" </dev/null' bash "$1" "$2" 2>&1
}

# try LABEL COMMAND...: what it prints is kept in the file $log, and shown when the command fails.
try() {
    local label=$1 status=0
    shift
    say "$label ..."
    log=$work/log.$((++steps))
    SECONDS=0
    # In the background, because a signal would have to wait for the end of a step in the foreground.
    set -m
    "$@" >"$log" &
    job=$!
    set +m
    wait "$job" || status=$?
    job=
    if [[ $status -eq 0 ]]; then
        echo "done in $((SECONDS / 60)) min $((SECONDS % 60)) s"
        return 0
    fi
    tail -n 200 "$log"
    problems+=("$label failed with status $status")
    return 1
}

# shows TEXT COMMAND...: that the command prints it, too.
shows() {
    local text=$1
    shift
    "$@" | tee "$work/shown" || return
    grep -qF "$text" "$work/shown" || { echo "This does not show: $text"; return 1; }
}

# On a machine with all the packages of the list nothing may be skipped for want of one. $1: what ctest printed.
look_at_what_was_skipped() {
    local tests=$root/tolvane/build/release/Testing/Temporary/LastTest.log skipped
    mapfile -t skipped < <(
        grep -hoE '[^ ]+ \.+\*\*\*(Skipped|Not Run)' "$1"
        grep -hoE 'passed over: .*' "$tests" | sort -u
    )
    problems+=("${skipped[@]}")
}

install_the_package() {
    new_root "$work/player"
    "${as_root[@]}" sh -c "cp '$root'/tolvane/build/release/tolvane_*.deb '$work/player/tolvane.deb'"
    # The window runs until it is told to end: nothing that it starts with is missing.
    in_root "$work/player" '
        apt-get -q update
        DEBIAN_FRONTEND=noninteractive apt-get -q -y install --no-install-recommends /tolvane.deb
        tolvane-cli games
        QT_QPA_PLATFORM=offscreen timeout 10 tolvane || [ $? -eq 124 ]
        test -s /root/.local/share/Tolvane/Default.qdx'
}

try_all() {
    try "A bare root of $suite" make_base || return
    new_root "$root"
    git clone -q . "$work/tolvane"
    "${as_root[@]}" cp -r "$work/tolvane" "$root/tolvane"
    say "Commit $(git log -1 --format='%h %s')"
    try "./run.sh" shows "There is no display" in_root "$root" "cd / && /tolvane/run.sh" || true
    try "./run.sh games" shows "Jacks or Better" in_root "$root" "cd / && /tolvane/run.sh games" || true
    try "./test.sh" in_root "$root" "cd / && /tolvane/test.sh" || true
    look_at_what_was_skipped "$log"
    try "Packing" in_root "$root" "cd /tolvane/build/release && cpack" || return
    try "The package on a machine without anything else" install_the_package || return
}

try_all || true
say "Result on $suite"
if [[ ${#problems[@]} -eq 0 ]]; then
    echo "Everything passed, and nothing was missing."
else
    printf '%s\n' "${problems[@]}"
    exit 1
fi
