#!/usr/bin/env bash
# Runs every fuzz target of a fuzz build for a number of seconds each, starting from the seed
# corpus in fuzz/corpus/<name> (read only; new inputs go to <build>/corpus/<name>), with
# libFuzzer's 100 MB limit on any single allocation. Prints one line per target with the
# number of inputs it ran, writes the same lines to <build>/fuzz-report.txt, keeps each log in
# <build>/logs and any crashing input in <build>/crashes. Fails when any target fails.
#   usage: run-fuzz.sh <fuzz build folder> <seconds per target>
set -uo pipefail
build=$(cd "${1:-build-fuzz}" && pwd)
seconds=${2:-60}
root=$(cd "$(dirname "$0")/.." && pwd)
mkdir -p "$build/logs" "$build/crashes"
report="$build/fuzz-report.txt"
: > "$report"
status=0
for target in "$build"/fuzz/fuzz_*; do
    [ -f "$target" ] && [ -x "$target" ] || continue
    name=$(basename "$target")
    work="$build/corpus/$name"
    log="$build/logs/$name.log"
    mkdir -p "$work"
    # The shipped help page seeds its target from data/ itself, so the seed never goes stale.
    [ "$name" = fuzz_helppage ] && cp "$root/data/pentalink.htm" "$work/shipped.htm"
    started=$(date +%s)
    "$target" -max_total_time="$seconds" -malloc_limit_mb=100 -timeout=10 -print_final_stats=1 \
        -artifact_prefix="$build/crashes/$name-" "$work" "$root/fuzz/corpus/${name#fuzz_}" \
        > "$log" 2>&1
    rc=$?
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
    result=ok
    if [ $rc -ne 0 ]; then
        result="FAILED (see $log)"
        status=1
    fi
    printf '%-20s %10s inputs in %3ss  %s\n' "$name" "${runs:-?}" "$(( $(date +%s) - started ))" \
        "$result" | tee -a "$report"
    if [ $rc -ne 0 ]; then
        grep -E 'broken rule|ERROR|runtime error|SUMMARY' "$log" | head -5
    fi
done
exit $status
