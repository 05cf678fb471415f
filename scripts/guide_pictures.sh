#!/usr/bin/env bash
# Makes the pictures of the user guide anew, and the README's.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/lib.sh

need_packages "${build_packages[@]}" "${font_packages[@]}" "${test_packages[@]}"
cmake --preset dev
cmake --build --preset dev --target guide_pictures
build/dev/tools/guide_pictures/guide_pictures docs/guide
