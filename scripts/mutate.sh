#!/bin/sh
# Mutation sample of the suite: scripts/mutate.sh [SEED] [COUNT] (see scripts/mutate.py).
exec python3 "$(dirname "$0")/mutate.py" "$@"
