#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the viewer and starts it on a sample station. Without a display it starts on a virtual one, takes the
# picture build/screenshot.png and ends.
# shellcheck disable=SC2086 # lists of packages become several words
set -eu
cd -P "$(dirname "$0")"
. tools/packages.sh

PROGRAM_FOLDER=build/release/app
WINDOW_LIMIT=120 # seconds until there is a window
PICTURE_LIMIT=60 # seconds until its picture no longer changes

has_display() { [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; }

# Keeps the user's own station next to the program; renews the sample every day, so that today has values.
lay_station() {
    ini=$PROGRAM_FOLDER/QEL.ini
    if [ -f "$ini" ] && ! grep -q '^# Beispielstation' "$ini"; then
        return 0
    fi
    if [ ! -f "$ini" ] || ! grep -q "^ZEITBIS=$(date +%d.%m.%Y)" "$ini"; then
        echo "Creating a sample station in $PROGRAM_FOLDER ..."
        build/release/tools/makestation/makestation "$PROGRAM_FOLDER" --until "$(date +%Y-%m-%d)T23:59"
    fi
}

start_on_display() {
    # A Wayland session without X needs Qt's own plug-in for it.
    if [ -z "${DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
        QT_QPA_PLATFORM=wayland
        export QT_QPA_PLATFORM
    fi
    exec "$PROGRAM_FOLDER/kelvrum"
}

# True once the picture has more than a handful of colours and equals the previous one.
is_picture_stable() {
    kill -0 "$viewer" 2>/dev/null || fail "the program has exited unexpectedly"
    before=${after:-none}
    import -window "$window" "$scratch/picture.png" 2>>"$scratch/import.log" || return 1
    after=$(identify -format '%#' "$scratch/picture.png")
    [ "$before" = "$after" ] && [ "$(identify -format '%k' "$scratch/picture.png")" -gt 4 ]
}

take_picture() {
    . tools/screen.sh
    start_screen
    XDG_RUNTIME_DIR=$scratch QT_QPA_PLATFORM=xcb "$PROGRAM_FOLDER/kelvrum" 2>"$scratch/viewer.log" &
    viewer=$!
    wait_for $WINDOW_LIMIT window_is_there '^Kelvrum - Station ' || fail "the program shows no window"
    wait_for $PICTURE_LIMIT is_picture_stable || fail "the picture keeps changing"
    cp "$scratch/picture.png" build/screenshot.png
    echo "No display here: the program was started on a virtual one and ended again."
    echo "Its first view is in $PWD/build/screenshot.png"
}

if has_display; then
    case ${DISPLAY:-} in
    "") need_packages $BUILD_PACKAGES qt6-wayland ;;
    *) need_packages $BUILD_PACKAGES ;;
    esac
else
    need_packages $BUILD_PACKAGES $PICTURE_PACKAGES
fi
use_preset release
cmake --build --preset release --target kelvrum makestation
lay_station
if has_display; then
    start_on_display
else
    take_picture
fi
