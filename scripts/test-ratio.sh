#!/usr/bin/env bash
# Keeps the test suite in proportion to the code it checks: counts the non-blank lines of every
# text file under tests/ (binary files such as reference pictures are data and are skipped)
# against the non-blank lines of the C++ files under src/, prints both and the ratio, and fails
# when the ratio passes the limit (first argument, default 0.40).
set -euo pipefail
cd "$(dirname "$0")/.."
limit=${1:-0.40}

count() { # non-blank lines of the given files; grep -I skips binary files
    xargs -0 -r grep -Ihv '^[[:space:]]*$' -- | wc -l
}
tests=$(find tests -type f -print0 | count)
src=$(find src -type f \( -name '*.cpp' -o -name '*.h' \) -print0 | count)
ratio=$(awk -v t="$tests" -v s="$src" 'BEGIN { printf "%.4f", (s ? t / s : 0) }')
echo "test lines $tests, source lines $src: ratio $ratio (limit $limit)"
# Compared unrounded: a ratio a hair above the limit must not pass as the rounded figure.
if awk -v t="$tests" -v s="$src" -v l="$limit" 'BEGIN { exit !(t > l * s) }'; then
    echo "the tests have grown past $limit of the code: make new cases rows in existing tables" >&2
    exit 1
fi
