#!/usr/bin/env bash
# Writes the reference pictures of every gallery state (tests/data/reference/) from the
# current build, after an intended change of a drawing. Look at them before committing.
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD_DIR=${BUILD_DIR:-build}
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
QT_QPA_PLATFORM=offscreen "$BUILD_DIR/apps/physlab/physlab" gallery "$tmp" >/dev/null
rm -rf tests/data/reference
mkdir -p tests/data/reference
cp "$tmp"/*.png tests/data/reference/
echo "wrote $(ls tests/data/reference | wc -l) reference pictures to tests/data/reference/"
