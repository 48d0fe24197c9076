#!/usr/bin/env bash
# clang-tidy over the sources but those of tests, benchmarks and fuzz targets: cmake/lint.sh [--all | FILE ...]
# Without an argument, over what has changed since the commit in cmake/linted, up to which all was clean: the changed
# sources, and for each changed header one source that includes it. --all takes about ten minutes.
# Needs the compile commands of the preset "sanitize", whose compiler is clang.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$top"
"$top/cmake/install-packages.sh" build check
[ -f build/sanitize/compile_commands.json ] || cmake --preset sanitize >/dev/null
sources() { git ls-files '*.cpp' | grep -vE '^(tests|bench|fuzz)/'; }
includer_of() { sources | xargs grep -l "#include \"$1\"" | head -n1 || true; }

linted=$(cat cmake/linted 2>/dev/null || true)
if [ $# -gt 0 ] && [ "$1" != --all ]; then
  files=("$@")
elif [ $# -eq 0 ] && git merge-base --is-ancestor "${linted:-none}" HEAD 2>/dev/null &&
  git diff --quiet "$linted" -- .clang-tidy; then
  mapfile -t changed < <(git diff --name-only --diff-filter=d "$linted" -- '*.h' '*.cpp')
  mapfile -t files < <(
    for file in "${changed[@]}"; do
      case $file in
        tests/* | bench/* | fuzz/*) ;;
        *.cpp) echo "$file" ;;
        *) source=${file%.h}.cpp; if [ -f "$source" ]; then echo "$source"; else includer_of "$file"; fi ;;
      esac
    done | sort -u)
else
  mapfile -t files < <(sources)
fi
echo "${#files[@]} sources"
[ ${#files[@]} -eq 0 ] ||
  printf '%s\0' "${files[@]}" | xargs -0 -P2 -n4 clang-tidy-14 --quiet -p build/sanitize 2>/dev/null
