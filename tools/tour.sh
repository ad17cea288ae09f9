#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Takes the pictures of the manual and of the README anew: docs/pictures. What has not changed stays the same file,
# byte for byte.
# shellcheck disable=SC2086 # lists of packages become several words
set -eu
cd -P "$(dirname "$0")/.."
. tools/packages.sh

need_packages $BUILD_PACKAGES
use_preset release
cmake --build --preset release --target tour
build/release/tools/tour/tour docs/pictures
