#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# The everyday check: format, debug build, the linter on changed files, the tests of the plain core. Takes two minutes
# after the first run; ./test.sh runs everything.
# shellcheck disable=SC2086 # lists of packages become several words
set -eu
cd -P "$(dirname "$0")"
. tools/packages.sh

CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(getconf _NPROCESSORS_ONLN)}
export CMAKE_BUILD_PARALLEL_LEVEL

need_packages $BUILD_PACKAGES $TEST_PACKAGES
tools/checks/format.sh
use_preset debug
cmake --build --preset debug
tools/checks/tidy.sh --changed
ctest --preset debug -L unit -j"$CMAKE_BUILD_PARALLEL_LEVEL"
