#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Prints from the real window while its print scheduler fails: it falls silent or dies at any question of a set-up and a
# print, dies while it receives, has a full disk, and loses a printer. No pause without events may last longer than 1.2 s.
#     tools/checks/scheduler.sh [STEP [PAUSE [TEST...]]]     each STEPth question, 1 by default; PAUSE in milliseconds
# Needs what the tests need, with a print scheduler, and unshare (util-linux) for the full disk: a file system of 20 MB in
# memory that only this check sees. Where the system does not allow that, the length of the scheduler's files is limited
# instead, and the check says so. Nothing is installed.
# shellcheck disable=SC2016,SC2086 # commands of another shell, with its own variables; options become several words
set -eu
cd -P "$(dirname "$0")/../.."
. tools/packages.sh

use_preset debug
cmake --build --preset debug --target f_scheduler_test
KELVRUM_QUESTION_STEP=${1:-1}
KELVRUM_LONGEST_PAUSE=${2:-1200}
export KELVRUM_QUESTION_STEP KELVRUM_LONGEST_PAUSE
[ $# -eq 0 ] || shift
[ $# -eq 0 ] || shift
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export QT_QPA_PLATFORM=offscreen QTEST_FUNCTION_TIMEOUT=1800000
program=$PWD/build/debug/tests/counterparts/f_scheduler_test

# run COMMAND... : the test program, and what it says of its pauses.
run() {
    status=0
    "$@" -o "$scratch/result,txt" >"$scratch/said" 2>/dev/null || status=$?
    grep 'longest pause' "$scratch/said" || true
    grep -a -A 2 '^FAIL\|^QFATAL\|^SKIP\|^Totals' "$scratch/result"
    return $status
}

if [ $# -gt 0 ]; then
    run "$program" "$@"
    exit
fi
run "$program" silenceAtAnyQuestion deathAtAnyQuestion deathWhileReceiving aPrinterVanishes

own="--mount"
[ "$(id -u)" -eq 0 ] || own="--user --map-root-user --mount"
mkdir "$scratch/small"
if unshare $own mount -t tmpfs -o size=20m kelvrum "$scratch/small" 2>/dev/null; then
    run unshare $own sh -eu -c '
        KELVRUM_SMALL_DISK=$0
        export KELVRUM_SMALL_DISK
        mount -t tmpfs -o size=20m kelvrum "$0"
        exec "$@"
    ' "$scratch/small" "$program" aFullSpool
else
    echo "No file system of its own is allowed here: instead of the disk, the length of files is limited."
    run "$program" aFullSpool
fi
