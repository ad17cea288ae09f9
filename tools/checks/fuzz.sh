#!/bin/sh
# Runs each fuzz target of tests/fuzz: first over its seeds and over the inputs that are kept, then for SECONDS (20) on
# inputs of the fuzzer's own, two targets at a time. An input that crashes a target or breaks a promise is kept in
# build/fuzz/crashes; moved into tests/fuzz/corpus/TARGET it is tried at every run from then on. With 0 SECONDS nothing
# but what is kept is tried.
#
#     tools/checks/fuzz.sh [SECONDS [TARGET...]]
#     tools/checks/fuzz.sh 3600
# shellcheck disable=SC2016 # fuzz_one is a program of its own
set -eu
cd -P "$(dirname "$0")/../.."
. tools/packages.sh

seconds=${1:-20}
seed=0 # a run of a length that is asked for goes a way of its own
if [ $# -eq 0 ]; then
    seed=1 # the usual run goes the same way each time, so that it fails for a change and not by chance
fi
if [ $# -gt 0 ]; then
    shift
fi
use_preset fuzz
cmake --build --preset fuzz

folder=build/fuzz/tests/fuzz
rm -rf build/fuzz/seeds
"$folder/make_seeds" build/fuzz/seeds
mkdir -p build/fuzz/crashes build/fuzz/logs

# fuzz_one SECONDS TARGETS SEED NAME, run as a program of its own for each target. What is found is kept in
# build/fuzz/found and tried first the next time.
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
        if [ "$length" = -max_total_time=0 ]; then # it would mean: for ever
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
