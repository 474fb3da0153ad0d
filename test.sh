#!/usr/bin/env bash
# Set up, build, and run the whole test suite.
set -euo pipefail
cd "$(dirname "$0")"
./scripts/setup.sh
export QT_QPA_PLATFORM=offscreen
ctest --test-dir build --output-on-failure -j"$(nproc)"
