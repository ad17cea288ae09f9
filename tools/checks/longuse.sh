#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Long use: a random user operates the optimised build, whose memory must not grow by more than 1 %. The last line
# shows the measurement.
#     tools/checks/longuse.sh [ACTIONS [SEED]]     20,000 actions take a few minutes
set -eu
cd -P "$(dirname "$0")/../.."

build=build/longuse
cmake -S . -B $build -G Ninja -DCMAKE_BUILD_TYPE=Release -DKELVRUM_TESTS=ON >/dev/null
cmake --build $build --target f_longuse_test
KELVRUM_RANDOM_ACTIONS=${1:-20000}
KELVRUM_RANDOM_SEED=${2:-20200618}
export KELVRUM_RANDOM_ACTIONS KELVRUM_RANDOM_SEED
result=$(mktemp)
trap 'rm -f "$result"' EXIT
status=0
QT_QPA_PLATFORM=offscreen QTEST_FUNCTION_TIMEOUT=3600000 $build/tests/app/f_longuse_test -o "$result,txt" 2>/dev/null || status=$?
grep -a 'FAIL\|actions:' "$result"
exit $status
