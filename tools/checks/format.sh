#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Fails when the formatter would change a source file. Another version would format other lines: it is not used.
# shellcheck disable=SC2086 # lists of folders become several words
set -eu
cd -P "$(dirname "$0")/../.."
. tools/checks/folders.sh

formatter=$(command -v clang-format-14 || command -v clang-format)
if ! "$formatter" --version | grep -qF 'version 14.'; then
    echo "SKIP: the sources are formatted with clang-format 14, not with $("$formatter" --version)."
    exit 0
fi
find $SOURCE_FOLDERS tests -type f \( -name '*.h' -o -name '*.cpp' \) -print0 |
    xargs -0 "$formatter" --dry-run -Werror
