#!/usr/bin/env bash
# Installs the build into a temporary prefix, then builds and runs the consumer project
# against it: once through the CMake package, once through pkg-config.
set -euo pipefail
build=$1
here=$(cd "$(dirname "$0")" && pwd)
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
cmake --install "$build" --prefix "$tmp/prefix" >/dev/null
export QT_QPA_PLATFORM=offscreen LD_LIBRARY_PATH="$tmp/prefix/lib:${LD_LIBRARY_PATH:-}"
libdir=$(ls -d "$tmp"/prefix/lib* | head -1)
export LD_LIBRARY_PATH="$libdir:$LD_LIBRARY_PATH"

cmake -S "$here" -B "$tmp/cmake" -DCMAKE_PREFIX_PATH="$tmp/prefix" >/dev/null
cmake --build "$tmp/cmake" >/dev/null
out=$("$tmp/cmake/consumer")
[ "$out" = "type 109, 1 handles" ] || { echo "find_package consumer printed: $out" >&2; exit 1; }

export PKG_CONFIG_PATH="$libdir/pkgconfig"
# shellcheck disable=SC2046
c++ -std=c++17 -fPIC "$here/main.cpp" -o "$tmp/pc-consumer" $(pkg-config --cflags --libs physicalobject)
out=$("$tmp/pc-consumer")
[ "$out" = "type 109, 1 handles" ] || { echo "pkg-config consumer printed: $out" >&2; exit 1; }
# The installed apps find the installed library beside them, with no library path set.
n=$(env -u LD_LIBRARY_PATH -u PHYSICALOBJECT_PLUGIN "$tmp/prefix/bin/physlab" list | wc -l)
[ "$n" -gt 60 ] || { echo "installed physlab listed $n types" >&2; exit 1; }
echo "both consumers built and ran; the installed physlab loaded the library"
