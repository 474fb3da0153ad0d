#!/usr/bin/env bash
# Sets our repaint of the largest dense magnetic field region (1000 x 1000, 2,500 marks)
# against QtSvg's render of the same document, and checks the resize step and every
# drag update of electricity and magnetism against their budgets. CPU time, medians.
# Exits 1 when a target is missed.
source "$(dirname "$0")/bench_common.sh"
svg="$work/field.svg"
printf 'new 506 --default-size\nset idDensity=2 idWidth=100 idHeight=100\nsvg\n' |
  "$BUILD_DIR/apps/physlab/physlab" run | jq -r 'select(.svg) | .svg' >"$svg"
marks=$(grep -c 'id="mark_' "$svg" || true)
if [ "$marks" != 2500 ]; then
  echo "bench_peer_fields: expected 2500 marks, the document has $marks" >&2
  exit 2
fi

ours=$("$BUILD_DIR/bench/phys_bench" --benchmark_filter='^BM_(Field|DragUpdate/)' --benchmark_repetitions=5 \
  --benchmark_report_aggregates_only=true --benchmark_format=json 2>/dev/null)
peer=$("$BUILD_DIR/bench/qtsvg_peer/qtsvg_peer" --reps "${REPS_FIELD:-30}" "$svg" 2>/dev/null)

resize_us=$(awk -v ns="$(median BM_FieldResizeStep)" 'BEGIN { printf "%.1f", ns / 1000 }')
paint_us=$(awk -v ns="$(median BM_FieldRepaint)" 'BEGIN { printf "%.1f", ns / 1000 }')
render_us=$(jq -r '.render_cpu_us' <<<"$peer")
drags=$(jq -r '.benchmarks[] | select(.name | test("^BM_DragUpdate/.*_median$")) | "\(.name) \(.cpu_time)"' <<<"$ours")

awk -v resize="$resize_us" -v paint="$paint_us" -v render="$render_us" -v drags="$drags" '
BEGIN {
  fail = 0
  printf "magnetic field region 1000 x 1000, dense, 2,500 marks (CPU time, medians)\n"
  ok = resize < 2000; fail += !ok
  printf "  one resize step (a row and a column)           %10.1f us   target < 2000 us %s\n", resize, ok ? "ok" : "MISSED"
  printf "  our repaint                                    %10.1f us\n", paint
  printf "  QtSvg render at the same size                  %10.1f us\n", render
  r = paint / render
  ok = r <= 1; fail += !ok
  printf "  ratio repaint/render %8.3f           target <= 1      %s\n", r, ok ? "ok" : "MISSED"
  n = split(drags, lines, "\n")
  for (i = 1; i <= n; i++) {
    split(lines[i], f, " ")
    us = f[2] / 1000
    ok = us < 50; fail += !ok
    sub(/^BM_DragUpdate\//, "", f[1]); sub(/_median$/, "", f[1])
    printf "  drag update %-16s %8.2f us   target < 50 us   %s\n", f[1], us, ok ? "ok" : "MISSED"
  }
  exit fail ? 1 : 0
}'
