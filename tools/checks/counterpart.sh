# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=sh
# Sourced by the checks with real counterparts, after tools/packages.sh: their packages, the program to check in a
# folder of its own, and a session of its own. Ends what it started when the script ends.

. tools/screen.sh

# needs PACKAGE... : ends the check when one is missing; it installs none.
needs() {
    missing=$(missing_packages "$@" | tr '\n' ' ')
    [ -z "$missing" ] || fail "install these packages first: $missing"
}

# built [PROGRAM] : sets `program` and `makestation`.
built() {
    if [ -n "$1" ]; then
        program=$1
        makestation=$(dirname "$1")/../tools/makestation/makestation
    else
        use_preset debug
        cmake --build --preset debug --target kelvrum makestation
        program=build/debug/app/kelvrum
        makestation=build/debug/tools/makestation/makestation
    fi
}

# lay_program OPTIONS... : the program with a sample station in $scratch/program, which is its program folder.
lay_program() {
    mkdir "$scratch/program"
    cp "$program" "$scratch/program/kelvrum"
    "$makestation" "$scratch/program" --until "$(date +%Y-%m-%d)T23:59" "$@" >/dev/null
}

# Home and runtime folder of a session that knows nothing of the user's, with the machine's LANG.
own_session() {
    mkdir "$scratch/home"
    mkdir -m 700 "$scratch/run"
    HOME=$scratch/home
    XDG_RUNTIME_DIR=$scratch/run
    export HOME XDG_RUNTIME_DIR
    unset DBUS_SESSION_BUS_ADDRESS XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME WAYLAND_DISPLAY CUPS_SERVER 2>/dev/null || true
    unset LANGUAGE LC_ALL 2>/dev/null || true
}

# start_printer : a print scheduler of the check's own with one printer, which prints into nothing.
start_printer() {
    spool=$scratch/cups
    mkdir -p "$spool/state" "$spool/cache" "$spool/spool" "$spool/tmp"
    cat >"$spool/cups-files.conf" <<END
ServerRoot $spool
StateDir $spool/state
CacheDir $spool/cache
RequestRoot $spool/spool
TempDir $spool/tmp
AccessLog $spool/access.log
ErrorLog $spool/error.log
PageLog $spool/page.log
FileDevice Yes
END
    cat >"$spool/cupsd.conf" <<END
Listen $spool/socket
Browsing Off
WebInterface No
DefaultAuthType None
<Location />
Order allow,deny
Allow all
</Location>
END
    cat >"$spool/printers.conf" <<END
<DefaultPrinter Testdrucker>
Info Testdrucker
DeviceURI file:///dev/null
State Idle
Accepting Yes
Shared No
</DefaultPrinter>
END
    PATH=$PATH:/usr/sbin cupsd -f -c "$spool/cupsd.conf" -s "$spool/cups-files.conf" 2>"$scratch/cupsd.log" &
    server="$server $!"
    CUPS_SERVER=$spool/socket
    export CUPS_SERVER
    wait_for 20 lpstat -r >/dev/null || fail "the print scheduler does not start"
}
