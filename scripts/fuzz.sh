#!/usr/bin/env bash
# Builds the libFuzzer targets with clang (AddressSanitizer and UBSan on) and runs each
# for SECONDS (default 60), seeding the stream fuzzer with saved objects of every type.
# Usage: scripts/fuzz.sh [SECONDS]; crashes land in build-fuzz/crashes/.
set -euo pipefail
cd "$(dirname "$0")/.."
SECONDS_EACH=${1:-60}
BUILD_DIR=${BUILD_DIR:-build-fuzz}
export QT_QPA_PLATFORM=offscreen
for tool in clang++ jq; do
  command -v "$tool" >/dev/null || { echo "fuzz: $tool is needed (apt-get install ${tool%++})" >&2; exit 2; }
done

CC=clang CXX=clang++ cmake -S . -B "$BUILD_DIR" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DPHYS_FUZZ=ON \
  -DPHYS_TESTS=OFF -DPHYS_BENCH=OFF >/dev/null
targets=(fuzz_stream fuzz_svg fuzz_panel fuzz_json fuzz_page)
cmake --build "$BUILD_DIR" -j"$(nproc)" --target "${targets[@]}" physlab >/dev/null

corpus="$BUILD_DIR/corpus"
mkdir -p "$corpus/stream" "$corpus/svg" "$corpus/panel" "$corpus/json" "$corpus/page" "$BUILD_DIR/crashes"
# Seeds: each type's saved stream (checksum to be kept) and JSON form behind its table
# index, its drawing, and a page of several apparatus.
index=0
while read -r type; do
  lab() { printf 'new %s --default-size\n%s\n' "$type" "$1" | "$BUILD_DIR/apps/physlab/physlab" run 2>/dev/null; }
  { printf "\\$(printf '%03o' $((index | 128)))"; lab save | jq -r 'select(.data) | .data' | base64 -d; } >"$corpus/stream/type-$type"
  { printf "\\$(printf '%03o' "$index")\\001"; lab savejson | jq -c 'select(.json) | .json'; } >"$corpus/json/type-$type"
  lab svg | jq -r 'select(.svg) | .svg' >"$corpus/svg/type-$type.svg"
  index=$((index + 1))
done < <("$BUILD_DIR/apps/physlab/physlab" list | jq -r '.type')
FUZZ_WRITE_SEED="$corpus/page/several" "$BUILD_DIR/fuzz/fuzz_page" >/dev/null 2>&1 || true

for target in "${targets[@]}"; do
  dir=${target#fuzz_}
  echo "fuzz: $target for ${SECONDS_EACH}s"
  "$BUILD_DIR/fuzz/$target" -max_total_time="$SECONDS_EACH" -max_len=65536 -rss_limit_mb=2048 \
    -artifact_prefix="$BUILD_DIR/crashes/" "$corpus/$dir" 2>&1 | grep -E '^(#[0-9]+[[:space:]]+DONE|Done |==|SUMMARY|artifact_prefix|Test unit)' || true
done
if ls "$BUILD_DIR/crashes/"* >/dev/null 2>&1; then
  echo "fuzz: crashes saved in $BUILD_DIR/crashes/" >&2
  exit 1
fi
echo "fuzz: no crash"
