#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs the linter over the sources, with the commands of build/debug (which must be built: windows need their generated
# headers) but without precompiled headers, as each file includes what it needs. A source that passed is checked again
# only if it, a header or the rules have changed.
#     tools/checks/tidy.sh              all sources
#     tools/checks/tidy.sh --program    all but the tests, which take as long again
#     tools/checks/tidy.sh --changed    those that differ from the branch main, or, on main, from the last commit
# shellcheck disable=SC2016,SC2086 # check_one is a program of its own, lists of folders become several words
set -eu
cd -P "$(dirname "$0")/../.."
. tools/checks/folders.sh

linter=$(command -v clang-tidy-14 || command -v clang-tidy)
stamps=build/tidy
mkdir -p "$stamps"
sed -E 's/ -Winvalid-pch//; s/( -Xclang)? -include(-pch)?( -Xclang)? [^ ]*cmake_pch\.hxx[^ "]*//g' \
    build/debug/compile_commands.json |
    awk '
        BEGIN { print "[" }
        /^\{/ { entry = "" }
        { entry = entry $0 "\n" }
        /"file":/ { file = $0; sub(/,$/, "", file) }
        /^\}/ && !(file in seen) { # a file of several targets is looked at once
            seen[file] = 1
            sub(/,?\n$/, "", entry)
            printf "%s%s", separator, entry
            separator = ",\n"
        }
        END { print "\n]" }
    ' >"$stamps/compile_commands.json"

# The sources in our own folders, as relative paths.
known_sources() {
    sed -n "s|^ *\"file\": \"$PWD/\(.*\.cpp\)\".*|\1|p" "$stamps/compile_commands.json" |
        grep -E "^($(echo $SOURCE_FOLDERS tests | tr ' ' '|'))/" | LC_ALL=C sort -u
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

# check_one LINTER STAMPS COMMON FILE, run as a separate process for each file, so that its findings stay together.
check_one='
    stamp=$2/$(echo "$4" | tr / _)
    key="$3 $(cksum <"$4")"
    if [ -f "$stamp.passed" ] && [ "$(cat "$stamp.passed")" = "$key" ]; then
        exit 0
    fi
    if "$1" -p "$2" --quiet "$4" >"$stamp.findings" 2>"$stamp.messages"; then
        echo "$key" >"$stamp.passed"
    else
        cat "$stamp.findings" "$stamp.messages"
        exit 1
    fi
'
case ${1:-} in
--changed) changed_sources ;;
--program) known_sources | grep -v '^tests/' ;;
*) known_sources ;;
esac | xargs -r -n 1 -P "$(getconf _NPROCESSORS_ONLN)" sh -c "$check_one" check_one "$linter" "$stamps" "$common"
