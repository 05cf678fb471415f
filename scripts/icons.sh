#!/usr/bin/env bash
# Draws the icon's sizes anew from its pictures in data/icon.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/lib.sh

need_packages librsvg2-bin
for size in 24 32 48 64 128 256 512; do
  rsvg-convert -w $size -h $size data/icon/vellora.svg -o data/icon/vellora-$size.png
done
rsvg-convert data/icon/vellora-16.svg -o data/icon/vellora-16.png
