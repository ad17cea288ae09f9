#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# The linter for scripts, over all of them.
set -eu
cd -P "$(dirname "$0")/../.."

find . -path ./build -prune -o -type f \( -name '*.sh' -o -path './.ci/*' \) -print | LC_ALL=C sort | xargs shellcheck --external-sources
