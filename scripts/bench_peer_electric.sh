#!/usr/bin/env bash
# Sets the drag updates of the ammeter and the knob against QtSvg's load of the same
# documents and prints the ratios; absolute times on shared machines are too noisy to
# compare across runs. Both sides are timed in thread CPU time, median of runs.
# Exits 1 when a target is missed.
source "$(dirname "$0")/bench_common.sh"
for type in 403 401; do
  printf 'new %s --default-size\nsvg\n' "$type" |
    "$BUILD_DIR/apps/physlab/physlab" run | jq -r 'select(.svg) | .svg' >"$work/$type.svg"
done

ours=$("$BUILD_DIR/bench/phys_bench" --benchmark_filter='^BM_(MeterDragUpdate|KnobDrag)$' --benchmark_repetitions=5 \
  --benchmark_report_aggregates_only=true --benchmark_format=json 2>/dev/null)
peer=$("$BUILD_DIR/bench/qtsvg_peer/qtsvg_peer" --reps "$REPS" "$work/403.svg" "$work/401.svg" 2>/dev/null)

meter_us=$(awk -v ns="$(median BM_MeterDragUpdate)" 'BEGIN { printf "%.3f", ns / 1000 }')
knob_us=$(awk -v ns="$(median BM_KnobDrag)" 'BEGIN { printf "%.3f", ns / 1000 }')
meter_load=$(jq -r 'select(.file | endswith("403.svg")) | .load_cpu_us' <<<"$peer")
knob_load=$(jq -r 'select(.file | endswith("401.svg")) | .load_cpu_us' <<<"$peer")

awk -v m="$meter_us" -v ml="$meter_load" -v k="$knob_us" -v kl="$knob_load" '
function row(name, ours, load,   r, ok) {
  printf "%s\n", name
  printf "  our drag update (host move, pointer, handle)   %10.2f us\n", ours
  printf "  QtSvg load of the same document                %10.2f us\n", load
  r = ours / load
  ok = r <= 1 / 50
  printf "  ratio drag/load      %8.4f (1/%.0f)   target <= 1/50   %s\n", r, 1 / r, ok ? "ok" : "MISSED"
  return !ok
}
BEGIN {
  fail = row("ammeter (CPU time, medians)", m, ml)
  fail += row("knob (CPU time, medians)", k, kl)
  exit fail ? 1 : 0
}'
