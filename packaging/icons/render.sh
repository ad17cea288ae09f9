#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Renders the icon's PNG files (rsvg-convert from librsvg2-bin). Run it after changing kelvrum.svg.
set -eu
cd -P "$(dirname "$0")"
for size in 16 32 48 128 256; do
    rsvg-convert -w $size -h $size -o kelvrum-$size.png kelvrum.svg
done
