#!/usr/bin/env bash
# Rebuilds data/english1.txt, the default dictionary: the common English four-letter words of
# Debian's `wamerican-small` list (/usr/share/dict/american-english-small, SCOWL size 35, the
# words most readers know), lower-case letters only, so proper nouns (capitalised),
# possessives and anything with other characters drop out, minus the reviewed words of
# data/blocklist.txt. Deterministic: sorted in the C locale, LF lines. A test checks that the
# shipped file is exactly what this script makes.
#
#   sudo apt-get install wamerican-small && bash scripts/make-dictionary.sh
set -euo pipefail
cd "$(dirname "$0")/.."

source=/usr/share/dict/american-english-small
if [ ! -r "$source" ]; then
    echo "make-dictionary: $source is missing; install it with: sudo apt-get install wamerican-small" >&2
    exit 1
fi

blocked=$(mktemp)
trap 'rm -f "$blocked"' EXIT
grep -v '^#' data/blocklist.txt | tr -s ' \t' '\n\n' | grep -E '^[a-z]+$' | LC_ALL=C sort -u >"$blocked"

LC_ALL=C grep -E '^[a-z]{4}$' "$source" | LC_ALL=C sort -u |
    LC_ALL=C comm -23 - "$blocked" >data/english1.txt

echo "data/english1.txt: $(wc -l <data/english1.txt) words ($(wc -l <"$blocked") blocked)"
