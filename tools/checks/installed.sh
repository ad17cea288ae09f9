#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# installed.sh ROOT : starts the program installed in ROOT as an ordinary user on a virtual screen: with a station in
# the user's data folder, without one, without a home folder and with a read-only one.
# shellcheck disable=SC2016 # a command in the root, with its own variables
set -eu
root=$1
cd -P "$(dirname "$0")/../.."

. tools/screen.sh

# Closes the message box with its only button. The key press suffices: there is no window left to release the key in.
closed_to_the_window() {
    if window_is_there '^Kelvrum$'; then
        xdotool keydown --window "$window" Return 2>/dev/null || true
        return 1
    fi
    window_is_there '^Kelvrum - Station $'
}

# start HOME FOLDER : runs the command of the desktop entry in FOLDER.
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

# works_in FOLDER : checks the program's current folder, as seen from inside the root.
works_in() {
    folder=$(readlink "/proc/$viewer/cwd")
    [ "${folder#"${root%/}"}" = "$1" ] || fail "the program works in $folder, not in $1"
}

manual=$root/usr/share/doc/kelvrum/Handbuch.md
pictures=$(grep -o 'pictures/[a-z-]*\.png' "$manual")
for picture in $pictures; do
    [ -s "${manual%/*}/$picture" ] || fail "the manual lacks $picture"
done

start_screen
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
