#!/usr/bin/env bash
# Set up and build, then either write the gallery of every apparatus to gallery/
# (no argument) or open the board (./run.sh board [page file]).
set -euo pipefail
cd "$(dirname "$0")"
# Only what the job at hand runs: physlab (and the library it loads) for the gallery,
# physboard for the board.
case "${1:-}" in
  board) BUILD_TARGETS=physboard ./scripts/setup.sh ;;
  "") BUILD_TARGETS=physlab ./scripts/setup.sh ;;
esac
case "${1:-}" in
  board)
    shift
    if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
      echo "run.sh: no display to open the board on. Run it in a desktop session, or under" >&2
      echo "  xvfb-run -a ./run.sh board     (a virtual display), or take a picture headless with" >&2
      echo "  QT_QPA_PLATFORM=offscreen ./build/apps/physboard/physboard --demo --screenshot board.png" >&2
      exit 2
    fi
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
