# Sourced by the bench_peer scripts: builds the benchmark targets in release mode,
# gives a scratch directory that goes away on exit, and reads medians from the
# benchmark's JSON in $ours.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
BUILD_DIR=${BUILD_DIR:-build}
REPS=${REPS:-300}
export QT_QPA_PLATFORM=offscreen

cmake -S . -B "$BUILD_DIR" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DPHYS_BENCH=ON >/dev/null
cmake --build "$BUILD_DIR" -j"$(nproc)" --target physlab phys_bench qtsvg_peer >/dev/null

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

median() { jq -r --arg n "$1_median" '.benchmarks[] | select(.name == $n) | .cpu_time' <<<"$ours"; }
