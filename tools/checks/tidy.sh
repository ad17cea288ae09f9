#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs the linter over the sources, with the commands of a build (which must be complete: windows need their generated
# headers) but without precompiled headers, as each file includes what it needs, and without the warning that only g++
# knows. A source that passed is checked again only if it, a header or the rules have changed. Another version of the
# linter has other rules: it is not used.
#     tools/checks/tidy.sh              all sources, one by one as build/debug compiles them
#     tools/checks/tidy.sh --program    the program and makestation, a dozen at a time as build/asan compiles them, which
#                                       takes a fifth of the time
#     tools/checks/tidy.sh --changed    those that differ from the branch main, or, on main, from the last commit
# shellcheck disable=SC2016,SC2086 # check_one is a program of its own, lists of folders become several words
set -eu
cd -P "$(dirname "$0")/../.."
. tools/checks/folders.sh

linter=$(command -v clang-tidy-14 || command -v clang-tidy)
if ! "$linter" --version | grep -qF 'version 14.'; then
    echo "SKIP: the rules are those of clang-tidy 14."
    exit 0
fi
build=build/debug
checks=
if [ "${1:-}" = --program ]; then
    build=build/asan
    checks=--checks=-bugprone-suspicious-include # a dozen includes its sources
fi
stamps=build/tidy/${build#build/}
mkdir -p "$stamps"
sed -E 's/ -Winvalid-pch//; s/ -Wunused-const-variable=1//; s/( -Xclang)? -include(-pch)?( -Xclang)? [^ ]*cmake_pch\.hxx[^ "]*//g' \
    "$build/compile_commands.json" |
    awk '
        BEGIN { print "[" }
        /^\{/ { entry = "" }
        { entry = entry $0 "\n" }
        /"file":/ { file = $0; sub(/,$/, "", file) }
        /^\}/ && !(file in seen) { # a file of several targets is checked only once
            seen[file] = 1
            sub(/,?\n$/, "", entry)
            printf "%s%s", separator, entry
            separator = ",\n"
        }
        END { print "\n]" }
    ' >"$stamps/compile_commands.json"

# The sources in our own folders, as relative paths. A dozen that is compiled at a time is a source in the build folder.
known_sources() {
    sed -n "s|^ *\"file\": \"$PWD/\(.*\.c[px][px]\)\".*|\1|p" "$stamps/compile_commands.json" |
        grep -E "^($(echo $SOURCE_FOLDERS tests | tr ' ' '|'))/|/Unity/" | LC_ALL=C sort -u
}

# A header is checked with the source of the same name, or with one that includes it.
changed_sources() {
    base=$(git merge-base HEAD origin/main 2>/dev/null || git merge-base HEAD main 2>/dev/null || echo HEAD)
    {
        git diff --name-only --diff-filter=d "$base" -- '*.cpp' '*.h'
        git ls-files --others --exclude-standard -- '*.cpp' '*.h'
    } | while read -r file; do
        case $file in
        *.cpp) echo "$file" ;;
        *) if [ -f "${file%.h}.cpp" ]; then
            echo "${file%.h}.cpp"
        else
            grep -rlF "#include \"$file\"" --include='*.cpp' $SOURCE_FOLDERS tests | LC_ALL=C sort | head -n 1
        fi ;;
        esac
    done | LC_ALL=C sort -u >"$stamps/changed"
    known_sources | LC_ALL=C comm -12 - "$stamps/changed"
}

common=$({
    "$linter" --version
    cat .clang-tidy tests/.clang-tidy CMakePresets.json cmake/*
    find $SOURCE_FOLDERS tests -name '*.h' | LC_ALL=C sort | xargs cat
} | cksum)

# check_one LINTER STAMPS COMMON CHECKS FILE, run as a separate process for each file, so that its findings stay together.
check_one='
    stamp=$2/$(echo "$5" | tr / _)
    sources=$5
    case $5 in */Unity/*) sources="$5 $(sed -n "s/^#include \"\(.*\)\"/\1/p" "$5")" ;; esac
    key="$3 $(cat $sources | cksum)"
    if [ -f "$stamp.passed" ] && [ "$(cat "$stamp.passed")" = "$key" ]; then
        exit 0
    fi
    if "$1" -p "$2" --quiet $4 "$5" >"$stamp.findings" 2>"$stamp.messages"; then
        echo "$key" >"$stamp.passed"
    else
        cat "$stamp.findings" "$stamp.messages"
        exit 1
    fi
'
case ${1:-} in
--changed) changed_sources ;;
--program) known_sources | grep -vE '^(tests|tools/bench|tools/tour)/' ;;
*) known_sources ;;
esac | xargs -r -n 1 -P "$(getconf _NPROCESSORS_ONLN)" sh -c "$check_one" check_one "$linter" "$stamps" "$common" "$checks"
