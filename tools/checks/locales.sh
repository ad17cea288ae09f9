#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs all tests under other languages and time zones: nothing stored, read or computed may depend on them.
#   locales.sh                       the debug tests under each of the three settings below
#   locales.sh PRESET LOCALE ZONE [OPTIONS]    the tests of one build under one setting, with further options of ctest
# The locales are compiled into build/locales, so the system needs none; their sources are in the package "locales".
set -eu
cd -P "$(dirname "$0")/../.."

folder=$PWD/build/locales

# make_locale NAME : as in "de_DE.UTF-8".
make_locale() {
    if [ ! -d "$folder/$1" ]; then
        mkdir -p "$folder"
        rm -rf "$folder/$1.new"
        # Warnings about the sources give exit code 1 although the locale was compiled.
        localedef -i "${1%.*}" -f "${1#*.}" "$folder/$1.new" || [ -f "$folder/$1.new/LC_NUMERIC" ]
        mv "$folder/$1.new" "$folder/$1"
    fi
}

# run_in PRESET LOCALE ZONE [OPTIONS]. Many tests wait, mostly for a print scheduler, so two run per processor.
run_in() {
    if [ "$2" != C ]; then
        make_locale "$2"
    fi
    # An unknown locale or zone would silently fall back to C and UTC, and the run would prove nothing.
    case $2 in
        de_*) point=, ;;
        *) point=. ;;
    esac
    case $3 in
        Europe/Berlin) offset=+0200 ;;
        Pacific/Auckland) offset=+1200 ;;
        *) offset=+0000 ;;
    esac
    found=$(LOCPATH=$folder LC_ALL=$2 locale decimal_point)
    if [ "$found" != "$point" ] || [ "$(TZ=$3 date -d 2020-07-01T00:00:00Z +%z)" != "$offset" ]; then
        echo "The locale $2 or the time zone $3 is missing." >&2
        return 1
    fi
    echo "== tests ($1, $2, $3)"
    preset=$1
    locale=$2
    zone=$3
    shift 3
    env -u LANGUAGE LOCPATH="$folder" LC_ALL="$locale" LANG="$locale" TZ="$zone" \
        LSAN_OPTIONS="suppressions=$PWD/tools/checks/locales.supp:print_suppressions=0" \
        ctest --preset "$preset" -j"$((2 * $(getconf _NPROCESSORS_ONLN)))" "$@"
}

if [ $# -ge 3 ]; then
    run_in "$@"
    exit
fi
run_in debug C UTC
run_in debug de_DE.UTF-8 Pacific/Auckland
run_in debug en_US.UTF-8 Europe/Berlin
