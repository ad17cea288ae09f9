# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=sh disable=SC2034
# Sourced by the checks: the existing source folders.
SOURCE_FOLDERS=
for folder in util drawing config diagram data evaluation correction batchprint app tools; do
    if [ -d "$folder" ]; then
        SOURCE_FOLDERS="$SOURCE_FOLDERS $folder"
    fi
done
