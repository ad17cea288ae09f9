#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# The program and a screen reader's interfaces: on a bus and a screen of its own, a client walks the program's tree,
# works its controls and listens to its events (screenreader.py).
#     tools/checks/screenreader.sh [PROGRAM]     a built program; without it that of the preset "debug", which is built
# Needs READER_PACKAGES of tools/packages.sh. Installs nothing; all files are in a folder of its own.
# shellcheck disable=SC2016,SC2086 # commands of another shell; lists of packages become several words
set -eu
cd -P "$(dirname "$0")/../.."
. tools/packages.sh
. tools/checks/counterpart.sh

needs $READER_PACKAGES
built "${1:-}"
lay_program --days 3
own_session
start_screen
start_printer
export QT_QPA_PLATFORM=xcb GSETTINGS_BACKEND=memory
PYTHONDONTWRITEBYTECODE=1 timeout 300 dbus-run-session -- sh -eu -c '
    for property in IsEnabled ScreenReaderEnabled; do # as a screen reader says that it is there
        gdbus call --session --dest org.a11y.Bus --object-path /org/a11y/bus --method \
            org.freedesktop.DBus.Properties.Set org.a11y.Status $property "<true>" >/dev/null
    done
    "$1" &
    viewer=$!
    status=0
    /usr/bin/python3 -W ignore::DeprecationWarning tools/checks/screenreader.py || status=$?
    kill $viewer
    exit $status
' screen_reader "$scratch/program/kelvrum" 2>"$scratch/session.log" || fail "the screen reader was not served"
echo "The screen reader found, worked and heard everything."
