#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# The program on real desktops: under a Wayland compositor without a screen and under X with a window manager; with the
# desktop's own light and dark theme; at ratio 2 by the compositor and 1.5 by the toolkit's scale factor; rows and picture
# pasted into another process; desktop entry and icon found where they are installed.
#     tools/checks/desktops.sh [PROGRAM]     a built program; without it that of the preset "debug", which is built
# Needs COUNTERPART_PACKAGES of tools/packages.sh. Installs nothing; all files are in a folder of its own.
# shellcheck disable=SC2086 # lists of packages become several words
set -eu
cd -P "$(dirname "$0")/../.."
. tools/packages.sh
. tools/checks/counterpart.sh

needs $COUNTERPART_PACKAGES
built "${1:-}"
lay_program --days 3
own_session
log=$scratch/viewer.log

end_viewer() {
    kill "$viewer"
    wait "$viewer" 2>/dev/null || true
    viewer=
}

# is_alive : the program still runs.
is_alive() { kill -0 "$viewer" 2>/dev/null || fail "the program has exited unexpectedly"; }

# pixels FILE : its width.
pixels() { identify -format '%w' "$1"; }

# --- X with a window manager ---

start_screen
openbox --sm-disable --startup "touch $scratch/managed" >"$scratch/openbox.log" 2>&1 &
server="$server $!"
# A window that appears while the manager is starting stays invisible.
wait_for 30 test -e "$scratch/managed" || fail "the window manager does not start"

# show_on_x VARIABLE=VALUE... : starts the program with these variables and waits for its window.
show_on_x() {
    env QT_QPA_PLATFORM=xcb "$@" "$scratch/program/kelvrum" 2>"$log" &
    viewer=$!
    wait_for 60 window_is_there '^Kelvrum - Station .' || fail "no window ($*)"
    xdotool windowactivate --sync "$window"
}

# Clicks at a place in the window, as a user does to give it the focus; without a drag.
click_at() {
    xdotool mousemove --window "$window" "$1" "$2" click 1
}

is_text_copied() { xclip -o -selection clipboard -t text/plain >"$scratch/rows.txt" 2>/dev/null && grep -q "$1" "$scratch/rows.txt"; }
is_picture_copied() { xclip -o -selection clipboard -t image/png >"$scratch/copied.png" 2>/dev/null && [ -s "$scratch/copied.png" ]; }

# copy_on_x : the picture, then all rows, pasted by another process.
copy_on_x() {
    click_at 500 300
    xdotool key ctrl+c
    wait_for 20 is_picture_copied || fail "no picture in the clipboard"
    click_at 12 137 # "Datenliste"
    sleep 1
    click_at 300 200
    xdotool key ctrl+a ctrl+c
    wait_for 20 is_text_copied '[0-9]	' || fail "no rows in the clipboard"
}

show_on_x
copy_on_x
plain=$(pixels "$scratch/copied.png")
echo "X and openbox: $(grep -c '	' "$scratch/rows.txt") rows and a picture of $plain pixels pasted."
xdotool key alt+F4 # the window manager's way to close a window
is_over() { ! kill -0 "$viewer" 2>/dev/null; }
wait_for 20 is_over || fail "the program does not end with its window"
viewer=

show_on_x QT_SCALE_FACTOR=1.5
click_at 750 450
xdotool key ctrl+c
wait_for 20 is_picture_copied || fail "no picture in the clipboard"
larger=$(pixels "$scratch/copied.png")
[ "$larger" -gt $((plain * 14 / 10)) ] || fail "the picture has $larger pixels at 1.5, $plain at 1"
echo "Scale factor 1.5: a picture of $larger pixels."
end_viewer

# --- the desktop's own themes ---

# theme NAME WINDOW TEXT : colours of the desktop, as its settings have them.
theme() {
    cat >"$scratch/home/.config/kdeglobals" <<END
[Colors:Window]
BackgroundNormal=$2
ForegroundNormal=$3
[Colors:View]
BackgroundNormal=$2
ForegroundNormal=$3
[Colors:Button]
BackgroundNormal=$2
ForegroundNormal=$3
[KDE]
widgetStyle=Fusion
END
    show_on_x XDG_CURRENT_DESKTOP=KDE KDE_FULL_SESSION=true KDE_SESSION_VERSION=5
    sleep 2
    import -window "$window" "$scratch/$1.png"
    end_viewer
    # The left column has the colour of the desktop; the diagram may stay as bright as paper.
    convert "$scratch/$1.png" -crop 110x120+4+640 -format '%[fx:round(100*mean)]' info:
}

mkdir -p "$scratch/home/.config"
light=$(theme light 239,240,241 35,38,41)
dark=$(theme dark 42,46,50 252,252,252)
echo "Themes: the column's brightness is $light % on the light desktop, $dark % on the dark one."
if [ "$light" -le 80 ] || [ "$dark" -ge 40 ]; then
    fail "the column does not follow the desktop's theme"
fi

# --- desktop entry and icon ---

mkdir -p "$scratch/usr/bin" "$scratch/usr/share/applications"
cp packaging/org.kelvrum.Kelvrum.desktop "$scratch/usr/share/applications"
for size in 16 32 48 128 256; do
    folder=$scratch/usr/share/icons/hicolor/${size}x$size/apps
    mkdir -p "$folder"
    cp "packaging/icons/kelvrum-$size.png" "$folder/org.kelvrum.Kelvrum.png"
done
cp /usr/share/icons/hicolor/index.theme "$scratch/usr/share/icons/hicolor"
ln -s "$scratch/program/kelvrum" "$scratch/usr/bin/kelvrum"
PATH=$scratch/usr/bin:$PATH
XDG_DATA_DIRS=$scratch/usr/share:/usr/share
export PATH XDG_DATA_DIRS
/usr/bin/python3 - <<'END' || fail "the desktop entry or its icon is not found"
import gi
gi.require_version("Gtk", "3.0")
from gi.repository import Gio, Gtk
Gtk.init([])
entry = Gio.DesktopAppInfo.new("org.kelvrum.Kelvrum.desktop")
assert entry is not None and entry.get_name() == "Kelvrum" and entry.should_show()
for size in (16, 48, 256):
    icon = Gtk.IconTheme.get_default().lookup_by_gicon(entry.get_icon(), size, 0)
    assert icon is not None and "org.kelvrum.Kelvrum" in icon.get_filename()
print("Desktop entry and icon:", icon.get_filename().rsplit("/usr/", 1)[1])
END

# --- Wayland, ratio 2 by the compositor ---

unset DISPLAY
cat >"$scratch/sway.conf" <<'END'
output * resolution 2560x2048 scale 2
default_border none
focus_follows_mouse no
END
# The compositor does not start for root, who has to be another user for it.
ordinary=
if [ "$(id -u)" -eq 0 ]; then
    ordinary="setpriv --reuid=65534 --regid=65534 --clear-groups"
    chmod 711 "$scratch"
    chmod 644 "$scratch/sway.conf"
    chown 65534:65534 "$XDG_RUNTIME_DIR"
fi
WLR_BACKENDS=headless WLR_LIBINPUT_NO_DEVICES=1 WLR_RENDERER=pixman $ordinary sway -c "$scratch/sway.conf" >"$scratch/sway.log" 2>&1 &
server="$server $!"
is_wayland_there() {
    SWAYSOCK=$(find "$XDG_RUNTIME_DIR" -name 'sway-ipc.*' | head -n 1)
    WAYLAND_DISPLAY=$(find "$XDG_RUNTIME_DIR" -name 'wayland-?' -printf '%f\n' | head -n 1)
    [ -n "$SWAYSOCK" ] && [ -n "$WAYLAND_DISPLAY" ]
}
wait_for 30 is_wayland_there || fail "the compositor does not start"
export SWAYSOCK WAYLAND_DISPLAY
tree() { swaymsg -t get_tree -r 2>/dev/null; }
is_shown() {
    is_alive
    tree | grep -q '"name": "Kelvrum - Station .'
}
is_rows_pasted() { wl-paste -l 2>/dev/null | grep -q '^text/plain' && wl-paste -n >"$scratch/rows.txt" && grep -q '[0-9]	' "$scratch/rows.txt"; }
is_picture_pasted() { wl-paste -n -t image/png >"$scratch/copied.png" 2>/dev/null && [ -s "$scratch/copied.png" ]; }

QT_QPA_PLATFORM=wayland "$scratch/usr/bin/kelvrum" 2>"$log" &
viewer=$!
wait_for 60 is_shown || fail "no window under Wayland"
tree | grep -q '"app_id": "org.kelvrum.Kelvrum"' || fail "the window does not belong to the desktop entry"
sleep 2
# By keys alone, as there is no pointer. They reach the window some time after it has appeared: a user would
# press them again, too. Each call of wtype plugs in a keyboard of its own, which the window has to learn about first.
press() { wtype -s 200 -M "$1" -s 50 -k "$2" -s 50 -m "$1" -s 200; }
copies_picture() {
    press ctrl c
    sleep 1
    is_picture_pasted
}
wait_for 30 copies_picture || fail "no picture in the clipboard under Wayland"
width=$(swaymsg -t get_outputs -r | sed -n 's/.*"width": \([0-9]*\).*/\1/p' | sort -n | tail -n 1)
double=$(pixels "$scratch/copied.png")
copies_rows() {
    press alt l # "Datenliste"
    for _ in 1 2 3; do # back to the list, in a few steps
        press shift Tab
        press ctrl a
        press ctrl c
        sleep 1
        is_rows_pasted && return 0
    done
    return 1
}
wait_for 60 copies_rows || fail "no rows in the clipboard under Wayland"
# The window fills the compositor's only screen, of 1280 points.
[ "$double" -gt 1800 ] || fail "the picture has $double pixels on a screen of $width"
echo "Wayland at ratio 2: $(grep -c '	' "$scratch/rows.txt") rows and a picture of $double pixels pasted; it is that of the desktop entry."
end_viewer
