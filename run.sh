#!/usr/bin/env bash
# Set up, build, and write the gallery of every apparatus to gallery/.
set -euo pipefail
cd "$(dirname "$0")"
./scripts/setup.sh
export QT_QPA_PLATFORM=offscreen
./build/apps/physlab/physlab gallery gallery
