#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Fails if anything in the build without windows (build/plain, which must exist) links Qt.
set -eu
cd -P "$(dirname "$0")/../.."

if grep -nE 'libQt[0-9]|-lQt[0-9]|Qt[0-9]::' build/plain/build.ninja; then
    echo "A plain target names Qt." >&2
    exit 1
fi
programs=$(find build/plain -type f -perm -u+x ! -path '*/CMakeFiles/*')
count=0
for program in $programs; do
    if ldd "$program" 2>/dev/null | grep -i 'libqt'; then
        echo "$program links Qt." >&2
        exit 1
    fi
    count=$((count + 1))
done
if [ "$count" -eq 0 ]; then
    echo "build/plain contains no program." >&2
    exit 1
fi
echo "$count programs without Qt."
