#!/usr/bin/env bash
# Sets the drag updates of the calipers and of the full-length calibration scale against
# QtSvg's load of the same documents, and checks the per-step p99 of a sweep over each
# handle's whole travel; absolute times on shared machines are too noisy to compare
# across runs. Thread CPU time, median of runs. Exits 1 when a target is missed.
source "$(dirname "$0")/bench_common.sh"
printf 'new 110 --default-size\nsvg\n' |
  "$BUILD_DIR/apps/physlab/physlab" run | jq -r 'select(.svg) | .svg' >"$work/110.svg"
printf 'new 111 --default-size\nset idPosValue=100\nsvg\n' |
  "$BUILD_DIR/apps/physlab/physlab" run | jq -r 'select(.svg) | .svg' >"$work/111.svg"

ours=$("$BUILD_DIR/bench/phys_bench" --benchmark_filter='^BM_(Calipers|Calibration)(Drag|Sweep)$' \
  --benchmark_repetitions=5 --benchmark_report_aggregates_only=true --benchmark_format=json 2>/dev/null)
peer=$("$BUILD_DIR/bench/qtsvg_peer/qtsvg_peer" --reps "$REPS" "$work/110.svg" "$work/111.svg" 2>/dev/null)

us() { awk -v ns="$(median "$1")" 'BEGIN { printf "%.3f", ns / 1000 }'; }
p99() { jq -r --arg n "$1_median" '.benchmarks[] | select(.name == $n) | .p99_us' <<<"$ours"; }
load() { jq -r --arg f "$1" 'select(.file | endswith($f)) | .load_cpu_us' <<<"$peer"; }

awk -v cd="$(us BM_CalipersDrag)" -v cl="$(load 110.svg)" -v cp="$(p99 BM_CalipersSweep)" \
  -v sd="$(us BM_CalibrationDrag)" -v sl="$(load 111.svg)" -v sp="$(p99 BM_CalibrationSweep)" '
function row(name, ours, load, p99,   r, ok, fail) {
  printf "%s (CPU time, medians)\n", name
  printf "  our drag update                                %10.2f us\n", ours
  printf "  QtSvg load of the same document                %10.2f us\n", load
  r = ours / load
  ok = r <= 1 / 50; fail = !ok
  printf "  ratio drag/load      %8.4f (1/%.0f)   target <= 1/50   %s\n", r, 1 / r, ok ? "ok" : "MISSED"
  ok = p99 < 1000; fail += !ok
  printf "  sweep, per-step p99 %.1f us              target < 1000 us %s\n", p99, ok ? "ok" : "MISSED"
  return fail
}
BEGIN {
  fail = row("vernier calipers", cd, cl, cp)
  fail += row("calibration scale, full length", sd, sl, sp)
  exit fail ? 1 : 0
}'
