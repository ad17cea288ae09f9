#!/bin/sh
# The linter over all sources but the tests, by the commands of build/clang (to be built before: windows need their
# generated headers). A source that passed is looked at again when it, a header or the rules have changed.
# shellcheck disable=SC2086 # lists of folders become several words
# shellcheck disable=SC2016 # check_one is a program of its own
set -eu
cd -P "$(dirname "$0")/../.."
. tools/checks/folders.sh

linter=$(command -v clang-tidy-14 || command -v clang-tidy)
stamps=build/tidy
mkdir -p "$stamps"

common=$({
    "$linter" --version
    cat .clang-tidy CMakePresets.json cmake/*
    find $SOURCE_FOLDERS -name '*.h' | LC_ALL=C sort | xargs cat
} | cksum)

# check_one LINTER STAMPS COMMON FILE, run as a program of its own for each file. The findings of a file stay together.
check_one='
    stamp=$2/$(echo "$4" | tr / _)
    key="$3 $(cksum <"$4")"
    if [ -f "$stamp.passed" ] && [ "$(cat "$stamp.passed")" = "$key" ]; then
        exit 0
    fi
    if "$1" -p build/clang --quiet "$4" >"$stamp.findings" 2>"$stamp.messages"; then
        echo "$key" >"$stamp.passed"
    else
        cat "$stamp.findings" "$stamp.messages"
        exit 1
    fi
'
find $SOURCE_FOLDERS -type f -name '*.cpp' -print0 |
    xargs -0 -n 1 -P "$(getconf _NPROCESSORS_ONLN)" sh -c "$check_one" check_one "$linter" "$stamps" "$common"
