#!/usr/bin/env bash
# Installs the built program into a temporary folder and packs it, as PackageTest.sh BUILD-FOLDER, and looks at
# both as a player would find them. Needs no root and leaves nothing behind; what a tool that is missing here
# would check is passed over.
set -euo pipefail
build=$1
here=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
temporary=$(mktemp -d)
prefix=$temporary/usr
trap 'jobs -p | xargs -r kill 2>/dev/null || true; wait; chmod -R u+w "$temporary"; rm -rf "$temporary"' EXIT

fail() { echo "FAILED: $*"; cat "$temporary"/output 2>/dev/null; exit 1; }
have() { command -v "$1" >/dev/null || { echo "passed over: there is no $1"; return 1; }; }

# All files and links below a folder, as lines to compare.
files_below() { (cd "$1" && find . ! -type d | sed 's|^\./||' | LC_ALL=C sort); }

# Looks every tenth of a second, for at most thirty seconds.
wait_until() {
    for _ in {1..300}; do
        "$@" >/dev/null 2>&1 && return 0
        sleep 0.1
    done
    fail "never happened: $*"
}

# Root may write into every folder, however it is protected; without that power it is as any other user.
settings=(env -u XDG_DATA_HOME XDG_CONFIG_HOME="$temporary/home/config" XDG_RUNTIME_DIR="$temporary/home"
    QT_QPA_PLATFORM=offscreen)
player=("${settings[@]}")
if [[ $EUID -eq 0 ]]; then player+=(setpriv "--bounding-set=-dac_override,-dac_read_search"); fi
analyser() { HOME=$temporary/home "${player[@]}" "$prefix/bin/tolvane-cli" "$@" 2>"$temporary/output"; }
# The shell that is about to become the program catches that signal too.
ends_on_sigterm() {
    [[ $(readlink "/proc/$1/exe") == */Tolvane ]] &&
        (((0x$(sed -n 's/^SigCgt:\s*//p' "/proc/$1/status") >> 14) & 1))
}

install_read_only() {
    cmake --install "$build" --prefix "$prefix" >"$temporary/output"
    diff "$here/installed-files.txt" <(files_below "$prefix") || fail "other files were installed than are listed"
    files_below "$prefix" >"$temporary/before"
    chmod -R a-w "$prefix"
    mkdir -m 700 "$temporary/home"
}

royal_flush_pays() {
    [[ $(analyser classify "Jacks or Better" "AS KS QS JS TS" --json) == *"\"pay\":$1}"* ]] ||
        fail "a royal flush does not pay $1"
}

a_new_user_gets_the_shipped_pay_tables() {
    royal_flush_pays 4000
    [[ $(analyser games | wc -l) -gt 42 ]] || fail "the catalogue is not there"
    [[ ! -e $temporary/home/.local ]] || fail "the analyser wrote into the home folder"
}

# start_and_end HOME COMMAND...: as a session with that home folder that ends at once.
start_and_end() {
    local home=$1 program
    shift
    HOME=$home "$@" "$prefix/bin/tolvane" >"$temporary/output" 2>&1 &
    program=$!
    wait_until ends_on_sigterm $program
    kill -TERM $program
    wait $program || fail "the program ended with status $?"
    for name in Tolvane.ini Default.qdx "Game Analyses.ini"; do
        [[ -s $home/.local/share/Tolvane/$name ]] || fail "there is no $name among the data of $home"
    done
    diff "$temporary/before" <(files_below "$prefix") || fail "the program folder changed"
}

the_window_keeps_its_data_in_the_home_folder() { start_and_end "$temporary/home" "${player[@]}"; }

# Or the shipped files would be gone for the next one.
even_somebody_who_may_write_to_the_program_folder_keeps_data_at_home() {
    mkdir -m 700 "$temporary/root"
    chmod -R u+w "$prefix"
    start_and_end "$temporary/root" "${settings[@]}"
    chmod -R a-w "$prefix"
}

the_analyser_follows_the_players_pay_tables() {
    local live=$temporary/home/.local/share/Tolvane/Tolvane.ini
    sed -i '0,/^MaxPayout0=4000/s//MaxPayout0=4700/' "$live"
    royal_flush_pays 4700
}

each_option_is_in_the_manual() {
    local manual=$temporary/manual option
    gunzip -c "$prefix/share/man/man1/tolvane-cli.1.gz" | sed 's/\\-/-/g' >"$manual"
    for command in games classify hand analyze strategy session ruin autoplay; do
        grep -q "^\.BI* $command" "$manual" || fail "the manual does not know $command"
        for option in $(analyser help $command | grep -o -- '--[a-z]*'); do
            grep -q -- "$option" "$manual" || fail "the manual does not know $option"
        done
    done
}

manuals_are_clean() {
    have man || return 0
    local page complaints
    for page in man1/tolvane-cli.1.gz man6/tolvane.6.gz; do
        complaints=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 \
            man --warnings -E UTF-8 -l -Tutf8 -Z "$prefix/share/man/$page" 2>&1 >/dev/null) || true
        [[ -z $complaints ]] || fail "$page: $complaints"
    done
}

the_desktop_understands_its_files() {
    local share=$prefix/share
    if have desktop-file-validate; then
        desktop-file-validate "$share/applications/tolvane.desktop" || fail "the desktop entry is wrong"
    fi
    if have appstreamcli; then
        appstreamcli validate --no-net "$share/metainfo/org.tolvane.Tolvane.metainfo.xml" >"$temporary/output" ||
            fail "the metadata are wrong"
    fi
    if have update-mime-database; then
        mkdir -p "$temporary/mime/packages"
        cp "$share/mime/packages/tolvane.xml" "$temporary/mime/packages"
        update-mime-database "$temporary/mime" >"$temporary/output" 2>&1 || fail "the MIME type is wrong"
        grep -q '^50:application/x-tolvane-game:\*\.qdx$' "$temporary/mime/globs2" || fail "*.qdx has no type"
    fi
}

versions_agree() {
    local version
    version=$(analyser --version | sed 's/.* //')
    grep -q "<release version=\"$version\"" "$prefix/share/metainfo/org.tolvane.Tolvane.metainfo.xml" ||
        fail "the metadata do not know version $version"
    [[ $(gunzip -c "$prefix/share/doc/tolvane/changelog.Debian.gz" | head -1) == "tolvane ($version-1) "* ]] ||
        fail "the package's changelog does not begin with version $version"
}

the_package_holds_what_is_installed() {
    have dpkg-shlibdeps && have file || return 0  # cpack asks both
    (cd "$temporary" && cpack -G DEB --config "$build/CPackConfig.cmake" -B "$temporary/packed") \
        >"$temporary/output" 2>&1 || fail "packing failed"
    local package depends
    package=$(echo "$temporary"/packed/tolvane_*.deb)
    dpkg-deb -x "$package" "$temporary/unpacked"
    diff "$here/installed-files.txt" <(files_below "$temporary/unpacked/usr") || fail "the package holds other files"
    if dpkg-deb -c "$package" | grep -v "^\(drwxr-xr-x\|-rwxr-xr-x\|-rw-r--r--\|lrwxrwxrwx\) root/root "; then
        fail "these are not for everyone to read, or not for root alone to write"
    fi
    depends=$(dpkg-deb -f "$package" Depends)
    for needed in libc6 libqt6widgets6 libqt6svg6 libpulse0 fonts-liberation fonts-dejavu-core; do
        [[ $depends == *$needed* ]] || fail "the package does not depend on $needed: $depends"
    done
}

install_read_only
a_new_user_gets_the_shipped_pay_tables
the_window_keeps_its_data_in_the_home_folder
even_somebody_who_may_write_to_the_program_folder_keeps_data_at_home
the_analyser_follows_the_players_pay_tables
each_option_is_in_the_manual
manuals_are_clean
the_desktop_understands_its_files
versions_agree
the_package_holds_what_is_installed
echo "the installed program and its package are as a player needs them"
