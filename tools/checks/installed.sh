#!/bin/sh
# installed.sh ROOT : starts the program that is installed in ROOT as an ordinary user on a virtual screen: with a
# station in the user's data folder, without one, without a home and with a home that cannot be written.
set -eu
root=$1
cd -P "$(dirname "$0")/../.."

scratch=$(mktemp -d)
server=
viewer=
# Whatever happens, nothing goes on running in the root.
clean_up() {
    for process in $viewer $server; do
        kill "$process" 2>/dev/null || true
        wait "$process" 2>/dev/null || true
    done
    rm -rf "$scratch"
}
trap clean_up EXIT
trap 'exit 1' HUP INT TERM

fail() {
    echo "installed.sh: $1" >&2
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

window_is_there() {
    kill -0 "$viewer" 2>/dev/null || fail "the program has ended by itself"
    window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1)
    [ -n "$window" ]
}

# A message is closed with its only button: the press does it, there is no window left to release the key in.
closed_to_the_window() {
    if window_is_there '^Kelvrum$'; then
        xdotool keydown --window "$window" Return 2>/dev/null || true
        return 1
    fi
    window_is_there '^Kelvrum - Station $'
}

# start HOME FOLDER : by the command of the desktop entry, from any folder.
start() {
    chroot --userspec=1000:1000 "$root" env -i HOME="$1" DISPLAY="$DISPLAY" LANG=C.UTF-8 PATH=/usr/bin:/bin \
        sh -c 'cd "$1" && exec $2' start "$2" "$command" >"$scratch/viewer.log" 2>&1 &
    viewer=$!
}

end() {
    kill "$viewer"
    wait "$viewer" 2>/dev/null || true
    viewer=
}

# works_in FOLDER : the program's current folder, as seen from inside of the root.
works_in() {
    folder=$(readlink "/proc/$viewer/cwd")
    [ "${folder#"${root%/}"}" = "$1" ] || fail "the program works in $folder, not in $1"
}

# Without -noreset it starts anew when a program has ended, and refuses the next one meanwhile.
Xvfb -displayfd 3 -noreset -screen 0 1280x1024x24 -nolisten tcp 3>"$scratch/display" 2>"$scratch/server.log" &
server=$!
wait_for 30 display_is_known || fail "the virtual display does not start"
DISPLAY=:$(cat "$scratch/display")
export DISPLAY

command=$(sed -n 's/^Exec=//p' "$root"/usr/share/applications/org.kelvrum.Kelvrum.desktop)
data=/home/anna/.local/share/kelvrum
mkdir -p "$root$data" "$root/home/berta" "$root/home/clara"
build/release/tools/makestation/makestation "$root$data" --days 2
chown -R 1000:1000 "$root/home/anna" "$root/home/berta"
chmod 555 "$root/home/clara"

start /home/anna /tmp
wait_for 60 window_is_there '^Kelvrum - Station .' || fail "no station in the title"
xdotool getwindowname "$window"
works_in "$data"
xprop -id "$window" WM_CLASS | grep -q '"kelvrum"$' || fail "the window is not of the class of the desktop entry"
xprop -id "$window" -f _NET_WM_ICON 32c '=$0' _NET_WM_ICON | grep -q '=48\|=256\|=16' || fail "the window has no icon"
end

start /home/berta /
wait_for 60 window_is_there '^Kelvrum - Station $' || fail "no window without a station"
works_in /home/berta/.local/share/kelvrum
end

for home in /nowhere /home/clara; do
    start $home /usr
    wait_for 60 window_is_there '^Kelvrum$' || fail "no message about the missing folder ($home)"
    wait_for 60 closed_to_the_window || fail "no window without the folder ($home)"
    works_in /usr
    end
done
echo "Installed and started: with a station, without one, and without a folder to write to."
