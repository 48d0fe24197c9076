#!/usr/bin/env bash
# clang-tidy over all sources but those of tests, benchmarks and fuzz targets: cmake/lint.sh [FILE ...]
# Needs the compile commands of the preset "fuzz", whose compiler is clang; takes about ten minutes.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$top"
"$top/cmake/install-packages.sh" build check
[ -f build/fuzz/compile_commands.json ] || cmake --preset fuzz >/dev/null
if [ $# -eq 0 ]; then
  mapfile -t files < <(git ls-files '*.cpp' | grep -vE '^(tests|bench|fuzz)/')
else
  files=("$@")
fi
printf '%s\0' "${files[@]}" | xargs -0 -P2 -n4 clang-tidy-14 --quiet -p build/fuzz 2>/dev/null
