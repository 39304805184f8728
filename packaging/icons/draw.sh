#!/bin/sh
# Draws the icon's pictures anew from orvane.svg. Needs rsvg-convert (package librsvg2-bin).
set -eu
cd "$(dirname "$0")"
for size in 48 128; do
    rsvg-convert --width "$size" --height "$size" orvane.svg --output "orvane-$size.png"
done
./ico.py orvane.ico orvane-48.png orvane-128.png
