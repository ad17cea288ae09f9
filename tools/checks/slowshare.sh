#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# The window on a share that answers after 50 ms, then not at all for five seconds, then with errors. A library that is
# preloaded comes between the program and the files of the station.
#     tools/checks/slowshare.sh [SILENCE [TEST...]]     in milliseconds
# Needs what the tests need, and glibc. Installs nothing.
set -eu
cd -P "$(dirname "$0")/../.."
. tools/packages.sh

use_preset debug
cmake --build --preset debug --target f_slowshare_check kelvrum_slowshare
KELVRUM_SHARE_SILENCE=${1:-5000}
[ $# -eq 0 ] || shift
result=$(mktemp)
trap 'rm -f "$result"' EXIT
status=0
programs=build/debug/tests/counterparts
export KELVRUM_SHARE_SILENCE
LD_PRELOAD=$PWD/$programs/libkelvrum_slowshare.so QT_QPA_PLATFORM=offscreen QTEST_FUNCTION_TIMEOUT=600000 \
    $programs/f_slowshare_check -o "$result,txt" "$@" 2>/dev/null || status=$?
grep -a -A 2 '^FAIL\|^QFATAL\|^Totals' "$result"
exit $status
