# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=sh
# Sourced by run.sh and the checks that show a window: a virtual screen, and helpers for the viewer that the script starts
# on it. Both processes are terminated when the script ends, for whatever reason.

scratch=$(mktemp -d)
server=
viewer=
clean_up() {
    for process in $viewer $server; do
        kill "$process" 2>/dev/null || true
        wait "$process" 2>/dev/null || true
    done
    rm -rf "$scratch"
}
trap clean_up EXIT
trap 'exit 1' HUP INT TERM

# fail MESSAGE : prints it with the output of server and viewer, and exits.
fail() {
    echo "$(basename "$0"): $1" >&2
    cat "$scratch"/*.log >&2 2>/dev/null || true
    exit 1
}

# wait_for SECONDS COMMAND... : repeats the command until it succeeds.
wait_for() {
    limit=$(($(date +%s) + $1))
    shift
    until "$@"; do
        [ "$(date +%s)" -lt "$limit" ] || return 1
        sleep 0.2
    done
}

display_is_known() { [ -s "$scratch/display" ]; }

# Starts the screen and sets DISPLAY.
start_screen() {
    # Without -noreset the server restarts after each program and refuses the next one meanwhile.
    Xvfb -displayfd 3 -noreset -screen 0 1280x1024x24 -nolisten tcp 3>"$scratch/display" 2>"$scratch/server.log" &
    server=$!
    wait_for 30 display_is_known || fail "the virtual display does not start"
    DISPLAY=:$(cat "$scratch/display")
    export DISPLAY
}

# window_is_there TITLE : looks for a window of the viewer whose title matches, and sets `window` to it.
window_is_there() {
    kill -0 "$viewer" 2>/dev/null || fail "the program has exited unexpectedly"
    window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1)
    [ -n "$window" ]
}
