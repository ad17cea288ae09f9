#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Fails when a folder includes from one that its layer does not know. Each row: a folder and all that it may include.
set -eu
cd -P "$(dirname "$0")/../.."

failed=0
while read -r folder known; do
    [ -d "$folder" ] || continue
    allowed=$(echo "$folder $known" | tr ' ' '|')
    if grep -rnE '^ *# *include "' "$folder" --include='*.h' --include='*.cpp' | grep -vE "include \"($allowed)/" |
        grep -vE 'include "[^/"]*\.moc"'; then
        echo "$folder/ may include from $known only." >&2
        failed=1
    fi
done <<END
util
drawing util
config util
diagram util drawing
data util drawing config diagram
evaluation util drawing config diagram data
correction util drawing config diagram data evaluation
batchprint util drawing config diagram data evaluation
app util drawing config diagram data evaluation correction batchprint
END
[ "$failed" -eq 0 ] && echo "No folder includes from a layer above it."
