#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs each fuzz target of tests/fuzz: first on its seeds and the stored inputs, then for SECONDS (10) on generated
# inputs, two targets at a time. An input that crashes a target or breaks a promise is saved in build/fuzz/crashes; move
# it to tests/fuzz/corpus/TARGET to try it in every later run. With 0 SECONDS only seeds and stored inputs are tried.
#
#     tools/checks/fuzz.sh [SECONDS [TARGET...]]
#     tools/checks/fuzz.sh 3600
# shellcheck disable=SC2016 # fuzz_one is a script of its own
set -eu
cd -P "$(dirname "$0")/../.."
. tools/packages.sh

seconds=${1:-10}
seed=0 # random, for a run of a chosen length
if [ $# -eq 0 ]; then
    seed=1 # the usual run is reproducible, so that it fails because of a change and not by chance
fi
if [ $# -gt 0 ]; then
    shift
fi
use_preset asan
cmake --build --preset asan --target kelvrum_fuzz_targets

folder=build/asan/tests/fuzz
rm -rf build/fuzz/seeds
"$folder/make_seeds" build/fuzz/seeds
mkdir -p build/fuzz/crashes build/fuzz/logs

# fuzz_one SECONDS TARGETS SEED NAME, run as a separate process for each target. New inputs are saved in
# build/fuzz/found and tried first in the next run.
fuzz_one='
    name=$4
    found=build/fuzz/found/$name
    log=build/fuzz/logs/$name
    mkdir -p "$found"
    folders="$found build/fuzz/seeds/$name"
    if [ -d "tests/fuzz/corpus/$name" ]; then
        folders="$folders tests/fuzz/corpus/$name"
    fi
    limits="-max_len=8192 -timeout=20 -rss_limit_mb=1024 -malloc_limit_mb=256 -seed=$3"
    for length in -runs=0 "-max_total_time=$1"; do
        if [ "$length" = -max_total_time=0 ]; then # would mean: no limit
            continue
        fi
        if ! nice "$2/$name" $limits $length -artifact_prefix="build/fuzz/crashes/$name-" -print_final_stats=1 \
                $folders >"$log" 2>&1; then
            sed "/^#[0-9]/d" "$log" | tail -n 60
            echo "Fuzz target $name failed on the input $(sed -n "s/.*Test unit written to //p" "$log")" >&2
            exit 1
        fi
    done
    echo "$name: $(sed -n "s/^stat::number_of_executed_units: *//p" "$log") inputs"
'
if [ $# -eq 0 ]; then
    for target in "$folder"/targets/*; do
        set -- "$@" "${target##*/}"
    done
fi
printf '%s\n' "$@" | xargs -n 1 -P 2 sh -c "$fuzz_one" fuzz_one "$seconds" "$folder/targets" "$seed"
