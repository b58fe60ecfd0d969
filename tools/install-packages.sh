#!/usr/bin/env bash
# Installs the packages that are missing for a build or, called with "test", for the tests as well.
# Says nothing and changes nothing when all are there. Exit code 1: the project cannot be built here.
set -euo pipefail

# The release preset builds the tests and benchmarks too, so their libraries are needed by every build.
build_packages=(
    cmake ninja-build g++
    libgtest-dev libbenchmark-dev libcli11-dev nlohmann-json3-dev libkissfft-dev
    qt6-base-dev qt6-svg-dev libpulse-dev
    fonts-liberation   # the face that stands for Arial; without any font the window shows no text
    fonts-dejavu-core  # that of menus and dialogs; without it they come out in Liberation's typewriter face
    qt6-wayland  # no other package asks for it, but a desktop without X shows no window without it
)
test_packages=(
    xvfb xauth  # xvfb-run calls xauth
    xdotool
    openbox  # keys reach only a window that a window manager has given the focus
    python3  # the README's test and that of the sounds
    pulseaudio pulseaudio-utils  # a sound server that is listened to
    at-spi2-core dbus python3-gi gir1.2-atspi-2.0  # what screen readers read the window with
)
# Screenshots of a virtual screen, and the judges of what is installed and packed. The tests pass without
# them, so they are tried only along with the others and their absence never stops or slows a run.
wished_packages=(imagemagick appstream desktop-file-utils dpkg-dev file man-db shared-mime-info)

wanted=("${build_packages[@]}")
wished=()
if [[ ${1:-} == test ]]; then
    wanted+=("${test_packages[@]}")
    wished=("${wished_packages[@]}")
fi

say() { printf '%s\n' "$*" >&2; }
have() { command -v "$1" >/dev/null; }

# Prints those of the given packages that are not installed.
missing_of() {
    local installed
    # dpkg-query fails when it does not know a name; that name is then simply not installed.
    installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
    local package
    for package in "$@"; do
        grep -qxF "installed $package" <<<"$installed" || echo "$package"
    done
}

# apt-get as root. Its output is shown only when it fails. DPkg::Lock::Timeout covers the lock of the
# installed packages alone; a machine just started often holds those of the lists and downloads too.
apt_get() {
    local as_root=() log
    [[ $EUID -eq 0 ]] || as_root=(sudo)
    for _ in {1..30}; do
        # Through env, because sudo may refuse to take variables over; in English for the look below.
        if log=$("${as_root[@]}" env LC_ALL=C DEBIAN_FRONTEND=noninteractive apt-get -qq -y \
            -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 "$@" 2>&1 </dev/null); then
            return 0
        fi
        [[ $log == *"Could not get lock"* || $log == *"nable to lock"* ]] || break
        sleep 10
    done
    printf '%s\n' "$log" >&2
    return 1
}

# Installs what is missing; false, with the reason said, when that did not work.
install_missing() {
    if ! have apt-get; then
        say "This system has no apt-get; please install the equivalents of these Debian packages by hand:"
    elif [[ $EUID -ne 0 ]] && ! have sudo; then
        say "Packages are missing, and installing them takes root or sudo. Please have these installed:"
    else
        say "Installing ${*} (some minutes on a new machine) ..."
        apt_get update || say "The package lists could not be refreshed; going on with those there are."
        if apt_get install --no-install-recommends "$@"; then
            [[ ${#wished[@]} -eq 0 ]] || apt_get install --no-install-recommends "${wished[@]}" ||
                say "Going on without ${wished[*]}."
            return 0
        fi
        say "Installing failed (the reason is above). Please have these installed:"
    fi
    say "    $*"
    return 1
}

# The tools may have come from elsewhere; what else is missing, CMake then says by name.
can_build() {
    local version
    if ! have cmake || ! have ninja || ! { have c++ || have g++ || have clang++; }; then
        say "Building takes CMake 3.25 or later, Ninja and a C++20 compiler."
        return 1
    fi
    version=$(cmake --version | sed -n '1s/[^0-9]*//p')
    if ! printf '3.25\n%s\n' "$version" | sort -CV; then
        say "Building takes CMake 3.25 or later; this is $version."
        return 1
    fi
}

mapfile -t missing < <(missing_of "${wanted[@]}")
if [[ ${#missing[@]} -gt 0 ]] && ! install_missing "${missing[@]}"; then
    can_build || exit 1
    say "The build tools are there; going on without the rest."
    exit 0
fi
can_build || exit 1
