#!/usr/bin/env bash
# The plug-in exports its entry points and its classes (every apparatus and the bases a
# new one derives from, all named C...), and nothing else: no helper namespace, no
# free function. What the compiler must emit weakly for inline code (standard
# containers' growth, a string literal inside an inline host function) is let through.
set -euo pipefail
lib=$1
entries='^(createObject_physical|physical_SetDefaultSpecialProperty|getCirclePointDegree|physical_TypeTable|physical_Terminals)\('
classes='^((vtable|typeinfo|typeinfo name|VTT|construction vtable) for )?C[A-Za-z0-9_]*(::|$| )'
bad=$(nm -D --defined-only -C "$lib" | awk '$2 != "W" && $2 != "V" && $2 != "u" { $1 = ""; $2 = ""; sub(/^  /, ""); print }' |
      grep -Ev "$entries" | grep -Ev "$classes" | grep -Ev '^(_edata|_end|__bss_start|_init|_fini)$' || true)
if [ -n "$bad" ]; then
  echo "exported beyond the entry points and classes:" >&2
  echo "$bad" | head -20 >&2
  exit 1
fi
all=$(nm -D --defined-only -C "$lib")
for e in createObject_physical physical_SetDefaultSpecialProperty getCirclePointDegree physical_TypeTable physical_Terminals; do
  grep -q " $e(" <<<"$all" || { echo "entry point $e is not exported" >&2; exit 1; }
done
echo "exports: entry points and classes only"
