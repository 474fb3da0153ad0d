#!/usr/bin/env bash
# Installs what is missing from Debian's packages, then configures and builds.
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(cmake g++ make pkg-config qtbase5-dev qttools5-dev qttools5-dev-tools libgtest-dev libbenchmark-dev ccache fonts-liberation libqt5svg5-dev jq libqt5test5 fonts-wqy-microhei librsvg2-bin)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "installing: ${missing[*]}"
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO=sudo
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${missing[@]}" >/dev/null
fi

BUILD_DIR=${BUILD_DIR:-build}
cmake -S . -B "$BUILD_DIR" -DCMAKE_BUILD_TYPE=RelWithDebInfo ${CMAKE_ARGS:-} >/dev/null
# BUILD_TARGETS narrows the build (./run.sh needs the apps only; ./test.sh builds everything).
# shellcheck disable=SC2086
cmake --build "$BUILD_DIR" -j"$(nproc)" ${BUILD_TARGETS:+--target $BUILD_TARGETS}
