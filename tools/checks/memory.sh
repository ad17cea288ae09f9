#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Peak memory of long work, each in a process of its own: done once, and done again and again, which must not raise the
# peak by more than 1 %.
#     tools/checks/memory.sh
# Needs what building the benchmarks needs (BUILD_PACKAGES and libbenchmark-dev) and 300 MB in TMPDIR (or /tmp) for a year
# of wide day files, which are removed at the end.
set -eu
cd -P "$(dirname "$0")/../.."
. tools/packages.sh

use_preset release >/dev/null
cmake --build --preset release --target kelvrum_bench_memory >/dev/null
export QT_QPA_PLATFORM=offscreen

messages=$(mktemp)
trap 'rm -f "$messages"' EXIT

# work WORK TIMES : prints the memory before it and the peak, in kB.
work() {
    build/release/tools/bench/kelvrum_bench_memory "$1" "$2" 2>"$messages" || {
        cat "$messages" >&2
        return 1
    }
}

status=0
# compare WORK TIMES WHAT
compare() {
    once=$(work "$1" 1)
    often=$(work "$1" "$2")
    before=${once% *}
    first=${once#* }
    last=${often#* }
    echo "$3: $((before / 1024)) MB before, peak $((first / 1024)) MB, after $2 times $((last / 1024)) MB"
    if [ "$first" -le "$before" ] || [ $((last * 100)) -gt $((first * 101)) ]; then
        echo "memory.sh: the peak of '$3' has grown from $first to $last kB" >&2
        status=1
    fi
}

compare year 20 "a year of minutes, diagram and list"
compare narrow 10 "a year of narrow day files, diagram and list"
compare wide 5 "a year of wide day files, diagram and list"
compare columns 5 "ten million columns"
compare printed 3 "the list of a year, printed to a file"
exit $status
