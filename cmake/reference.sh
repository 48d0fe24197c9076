#!/usr/bin/env bash
# Makes the reference of the public headers, and of the elements that descriptions name, into the documentation of an
# installed copy: cmake/reference.sh PREFIX. A warning is an error.
set -euo pipefail
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
prefix=$(cd "$1" && pwd)
"$top/cmake/install-packages.sh" reference
headers="$prefix/include/norvelian"
output="$prefix/share/doc/Norvelian"
[ -d "$headers" ] || { echo "There are no headers in $headers" >&2; exit 1; }
mkdir -p "$output"
doxygen - <<EOF
PROJECT_NAME = Norvelian
INPUT = "$headers" "$top/gui/charts" "$top/gui/colour" "$top/gui/controls" "$top/gui/layout"
RECURSIVE = YES
FILE_PATTERNS = *.h
EXCLUDE_PATTERNS = *_PC.h CNorvelian*.h
STRIP_FROM_PATH = "$headers" "$top"
STRIP_FROM_INC_PATH = "$headers" "$top"
OUTPUT_DIRECTORY = "$output"
HTML_OUTPUT = reference
GENERATE_LATEX = NO
HAVE_DOT = NO
JAVADOC_AUTOBRIEF = YES
EXTRACT_ALL = YES
BUILTIN_STL_SUPPORT = YES
QUIET = YES
WARN_AS_ERROR = FAIL_ON_WARNINGS
EOF
