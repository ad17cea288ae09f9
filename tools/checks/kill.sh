#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Kills the code that writes files at random moments: corrections over two years and savings of the batch settings, on
# an ordinary disk and on a full one. Every value must be the old or the new one, and the next run must complete.
#     tools/checks/kill.sh [KILLS [SEED]]     200 kills of each kind take about two minutes
# Needs what the tests need, and unshare (util-linux) for the full disk: a file system of 20 MB in memory that only
# this check sees. Where the system does not allow that, the check says so. Nothing is installed.
# shellcheck disable=SC2016 # commands of another shell, with its own variables
set -eu
cd -P "$(dirname "$0")/../.."
. tools/packages.sh

use_preset debug
cmake --build --preset debug --target kelvrum_kill_tests kelvrum_fulldisk_check
KELVRUM_KILLS=${1:-200}
KELVRUM_KILL_SEED=${2:-20200618}
export KELVRUM_KILLS KELVRUM_KILL_SEED
programs=$PWD/build/debug/tests/counterparts

"$programs/kelvrum_kill_tests" --gtest_brief=1
if ! unshare --user --map-root-user --mount true 2>/dev/null; then
    echo "SKIPPED: the full disk (no file system of its own is allowed here)"
    exit 0
fi
disk=$(mktemp -d)
trap 'rm -rf "$disk"' EXIT
unshare --user --map-root-user --mount sh -eu -c '
    mount -t tmpfs -o size=20m kelvrum "$1"
    TMPDIR=$1 "$2/kelvrum_fulldisk_check" --gtest_brief=1
' full_disk "$disk" "$programs"
