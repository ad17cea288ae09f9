#!/bin/sh
# Renders the icon to its PNG sizes anew (rsvg-convert of librsvg2-bin). To be run after a change of kelvrum.svg.
set -eu
cd -P "$(dirname "$0")"
for size in 16 32 48 128 256; do
    rsvg-convert -w $size -h $size -o kelvrum-$size.png kelvrum.svg
done
