# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=sh disable=SC2034,SC2086 # the lists are used elsewhere, and become several words
# Sourced by the scripts: the packages they need, and functions that install them.

# To build and to start the viewer.
BUILD_PACKAGES="g++ cmake ninja-build qt6-base-dev qt6-svg-dev libcups2-dev fonts-liberation"
# To start it without a display and to take its picture.
PICTURE_PACKAGES="xvfb xdotool imagemagick"
# To test: second compiler, its fuzzer, linker and names for its stack traces, formatter, linters, test and benchmark
# libraries, a print scheduler, PDF tools, locales and time zones.
TEST_PACKAGES="clang libclang-rt-dev lld llvm clang-format clang-tidy shellcheck libgtest-dev libgmock-dev libbenchmark-dev xvfb xdotool
    imagemagick cups cups-client cups-filters poppler-utils locales tzdata"
# To build the installation package, to check it and to install it into a fresh root.
PACKAGING_PACKAGES="dpkg-dev file lintian desktop-file-utils appstream man-db mmdebstrap xvfb xdotool x11-utils"
# To check the program with a screen reader's bus and a print scheduler.
READER_PACKAGES="xvfb xdotool dbus libglib2.0-bin at-spi2-core python3-gi gir1.2-atspi-2.0 cups cups-client"
# The same with further counterparts: desktops on X and Wayland.
COUNTERPART_PACKAGES="$READER_PACKAGES imagemagick gir1.2-gtk-3.0 hicolor-icon-theme openbox xclip sway wtype wl-clipboard
    qt6-wayland"
# To renew the table of letters in capitals and small (tools/casefolding.sh).
TABLE_PACKAGES="unicode-data"
# Qt's own texts in German; optional, as not every distribution has this package.
GOOD_PACKAGES="qt6-translations-l10n"

# missing_packages NAME... : prints those that are not installed, one per line.
missing_packages() {
    installed=$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
    for package in "$@"; do
        printf '%s\n' "$installed" | grep -qxF "$package installed" || printf '%s\n' "$package"
    done
}

# as_root COMMAND... : asks for a password only on a terminal.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif [ -t 0 ]; then
        sudo "$@"
    else
        sudo -n "$@"
    fi
}

# can_be_root : whether as_root works; asks for a password only on a terminal.
can_be_root() {
    if [ "$(id -u)" -eq 0 ]; then
        return 0
    fi
    command -v sudo >/dev/null || return 1
    sudo -n true 2>/dev/null || { [ -t 0 ] && sudo -v; }
}

# apt COMMAND... : apt-get without questions; waits while another process holds the lock.
apt() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 "$@"
}

# need_packages NAME... : installs missing packages. Without apt-get, or without the permission to use it, it lists what
# is needed and fails only if the main tools are missing.
need_packages() {
    if command -v apt-get >/dev/null && command -v dpkg-query >/dev/null; then
        missing=$(missing_packages "$@")
        good=$(missing_packages $GOOD_PACKAGES)
        if [ -z "$missing$good" ]; then
            return 0
        fi
        if can_be_root; then
            if [ -n "$missing" ]; then
                apt update || return 1
            fi
            for package in $good; do
                if apt-cache show "$package" >/dev/null 2>&1; then
                    missing="$missing $package"
                fi
            done
            if [ -n "$missing" ]; then
                apt install -y --no-install-recommends $missing || return 1
            fi
            return 0
        fi
        if [ -z "$missing" ]; then
            return 0
        fi
        echo "No permission to install packages. Install these first:" $missing
    else
        echo "No apt-get here. Needed: a compiler with C++20, CMake 3.25 or newer, Ninja, Qt 6.4 or newer with"
        echo "Widgets, PrintSupport and Svg, the CUPS library, a font with the metrics of Arial (Liberation Sans)."
        echo "On Debian, the packages are:" "$@"
    fi
    for tool in c++ cmake ninja; do
        if ! command -v "$tool" >/dev/null; then
            echo "$tool is missing." >&2
            return 1
        fi
    done
}

# use_preset NAME : configures a build folder if it is new, older than the presets or was moved.
use_preset() {
    cache=build/$1/CMakeCache.txt
    if [ -f "$cache" ] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$cache"; then
        cmake --fresh --preset "$1"
    elif [ ! -f "build/$1/build.ninja" ] || [ -n "$(find CMakePresets.json -newer "build/$1/build.ninja")" ]; then
        cmake --preset "$1"
    fi
}

# Use UTF-8 even if the system sets no locale.
if [ -z "${LC_ALL:-}${LC_CTYPE:-}${LANG:-}" ]; then
    LANG=C.UTF-8
    export LANG
fi
