#!/usr/bin/env bash
# Sets the calipers' drag update against QtSvg's load of the same document, and checks
# the per-step p99 of a sweep over the jaw's whole travel; absolute times on shared
# machines are too noisy to compare across runs. Thread CPU time, median of runs.
# Exits 1 when a target is missed.
source "$(dirname "$0")/bench_common.sh"
printf 'new 110 --default-size\nsvg\n' |
  "$BUILD_DIR/apps/physlab/physlab" run | jq -r 'select(.svg) | .svg' >"$work/110.svg"

ours=$("$BUILD_DIR/bench/phys_bench" --benchmark_filter='^BM_Calipers(Drag|Sweep)$' --benchmark_repetitions=5 \
  --benchmark_report_aggregates_only=true --benchmark_format=json 2>/dev/null)
peer=$("$BUILD_DIR/bench/qtsvg_peer/qtsvg_peer" --reps "$REPS" "$work/110.svg" 2>/dev/null)

drag_us=$(awk -v ns="$(median BM_CalipersDrag)" 'BEGIN { printf "%.3f", ns / 1000 }')
p99_us=$(jq -r '.benchmarks[] | select(.name == "BM_CalipersSweep_median") | .p99_us' <<<"$ours")
load_us=$(jq -r '.load_cpu_us' <<<"$peer")

awk -v drag="$drag_us" -v load="$load_us" -v p99="$p99_us" '
BEGIN {
  fail = 0
  printf "vernier calipers (CPU time, medians)\n"
  printf "  our drag update (host move, slider, handle)    %10.2f us\n", drag
  printf "  QtSvg load of the same document                %10.2f us\n", load
  r = drag / load
  ok = r <= 1 / 50; fail += !ok
  printf "  ratio drag/load      %8.4f (1/%.0f)   target <= 1/50   %s\n", r, 1 / r, ok ? "ok" : "MISSED"
  ok = p99 < 1000; fail += !ok
  printf "  sweep 0..150 mm, per-step p99 %.1f us    target < 1000 us %s\n", p99, ok ? "ok" : "MISSED"
  exit fail ? 1 : 0
}'
