#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Fails when a source file does not name its licence in its first lines.
set -eu
cd -P "$(dirname "$0")/../.."

unnamed=$(find . \( -path ./build -o -path ./.git \) -prune -o -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.inc' \
    -o -name '*.sh' -o -name '*.py' -o -name '*.cmake' -o -name CMakeLists.txt \) -print | while read -r file; do
    head -n 2 "$file" | grep -q 'SPDX-License-Identifier: ' || echo "$file"
done)
if [ -n "$unnamed" ]; then
    printf 'Without a line "SPDX-License-Identifier":\n%s\n' "$unnamed" >&2
    exit 1
fi
