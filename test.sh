#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs every check: format, scripts, the core without Qt, both compilers, the linter, a short fuzzing of the readers, a
# screen reader's bus, the installation package, and all tests without and with sanitizers, in several languages and
# time zones. Ends with CTest's summary and exit code; an earlier step that fails ends it at once.
# shellcheck disable=SC2086 # lists of packages become several words
set -eu
cd -P "$(dirname "$0")"
. tools/packages.sh

CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(getconf _NPROCESSORS_ONLN)}
export CMAKE_BUILD_PARALLEL_LEVEL

# step NAME COMMAND...
step() {
    name=$1
    shift
    echo "== $name"
    began=$(date +%s)
    if ! "$@"; then
        echo "test.sh: step '$name' failed" >&2
        exit 1
    fi
    echo "== $name: $(($(date +%s) - began)) s"
}

# build PRESET
build() { use_preset "$1" && cmake --build --preset "$1"; }

# The libraries and a program; their tests run in the other builds.
plain() {
    use_preset plain && cmake --build --preset plain --target kelvrum_plain makestation && tools/checks/plain.sh
}

# run_tests PRESET LOCALE ZONE [OPTIONS] : when a test fails, CTest's summary is the last output.
run_tests() {
    began=$(date +%s)
    tools/checks/locales.sh "$@" || exit $?
}

step packages need_packages $BUILD_PACKAGES $TEST_PACKAGES $PACKAGING_PACKAGES $READER_PACKAGES
step format tools/checks/format.sh
step licence tools/checks/licence.sh
step layers tools/checks/layers.sh
step shell tools/checks/shell.sh
step plain plain
step "build (asan)" build asan # with the second compiler
step tidy tools/checks/tidy.sh --program # ./check.sh lints the tests that have changed
step fuzz tools/checks/fuzz.sh
step "build (debug)" build debug
step "screen reader" tools/checks/screenreader.sh build/debug/app/kelvrum
step package tools/checks/package.sh
run_tests debug C UTC -L unit
echo "== tests (debug, unit): $(($(date +%s) - began)) s"
run_tests debug en_US.UTF-8 Europe/Berlin
echo "== tests (debug): $(($(date +%s) - began)) s"
run_tests asan de_DE.UTF-8 Pacific/Auckland
