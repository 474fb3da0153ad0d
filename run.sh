#!/usr/bin/env bash
# Set up and build, then either write the gallery of every apparatus to gallery/
# (no argument) or open the board (./run.sh board [page file]).
set -euo pipefail
cd "$(dirname "$0")"
./scripts/setup.sh
case "${1:-}" in
  board)
    shift
    exec ./build/apps/physboard/physboard "$@"
    ;;
  "")
    export QT_QPA_PLATFORM=offscreen
    ./build/apps/physlab/physlab gallery gallery
    ;;
  *)
    echo "usage: ./run.sh [board [PAGE_FILE]]" >&2
    exit 2
    ;;
esac
