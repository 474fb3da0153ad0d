#!/usr/bin/env bash
# Sets our model and painter against QtSvg on the same full-length ruler (266 ticks,
# 27 labels) and prints the ratios; absolute times on shared machines are too noisy
# to compare across runs. Both sides are timed in thread CPU time, median of runs.
# Exits 1 when a target is missed.
source "$(dirname "$0")/bench_common.sh"
svg="$work/ruler-full.svg"
printf 'new 109 --default-size\nset idPosValue=100\nsvg\n' |
  "$BUILD_DIR/apps/physlab/physlab" run | jq -r 'select(.svg) | .svg' >"$svg"
ticks=$(grep -c '<line ' "$svg" || true)
labels=$(grep -c '<text ' "$svg" || true)
if [ "$ticks" != 266 ] || [ "$labels" != 27 ]; then
  echo "bench_peer: expected 266 ticks and 27 labels, the document has $ticks and $labels" >&2
  exit 2
fi

ours=$("$BUILD_DIR/bench/phys_bench" --benchmark_filter='^BM_Ruler' --benchmark_repetitions=5 \
  --benchmark_report_aggregates_only=true --benchmark_format=json 2>/dev/null)
peer=$("$BUILD_DIR/bench/qtsvg_peer/qtsvg_peer" --reps "$REPS" "$svg" 2>/dev/null)

drag_us=$(awk -v ns="$(median BM_RulerDragUpdate)" 'BEGIN { printf "%.3f", ns / 1000 }')
paint_us=$(awk -v ns="$(median BM_RulerRepaint)" 'BEGIN { printf "%.1f", ns / 1000 }')
p99_us=$(jq -r '.benchmarks[] | select(.name == "BM_RulerSweep_median") | .p99_us' <<<"$ours")
load_us=$(jq -r '.load_cpu_us' <<<"$peer")
render_us=$(jq -r '.render_cpu_us' <<<"$peer")

awk -v drag="$drag_us" -v paint="$paint_us" -v p99="$p99_us" -v load="$load_us" -v render="$render_us" '
BEGIN {
  fail = 0
  printf "full-length ruler, 266 ticks, 27 labels (CPU time, medians)\n"
  printf "  our drag update (one pitch, Resize included)  %10.2f us\n", drag
  printf "  QtSvg load of the same document                %10.2f us\n", load
  r = drag / load
  ok = r <= 1 / 50; fail += !ok
  printf "  ratio drag/load      %8.4f (1/%.0f)   target <= 1/50   %s\n", r, 1 / r, ok ? "ok" : "MISSED"
  printf "  our repaint                                    %10.1f us\n", paint
  printf "  QtSvg render at the same size                  %10.1f us\n", render
  r = paint / render
  ok = r <= 1; fail += !ok
  printf "  ratio repaint/render %8.3f           target <= 1      %s\n", r, ok ? "ok" : "MISSED"
  ok = p99 < 8300; fail += !ok
  printf "  sweep 50..800, per-step p99 %.1f us      target < 8300 us %s\n", p99, ok ? "ok" : "MISSED"
  exit fail ? 1 : 0
}'
