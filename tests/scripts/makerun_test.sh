#!/usr/bin/env bash
# `make run` against a stand-in build folder and a stand-in cmake that records its calls:
# without a display it says so and builds nothing; with one it builds only the game's targets
# and starts the game from the build folder.
#
#   makerun_test.sh <source folder>
set -euo pipefail
source_dir=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/build/bin" "$work/tools"
touch "$work/build/build.ninja" # configured already
printf '#!/bin/sh\necho "$*" >>"%s/cmake.log"\n' "$work" >"$work/tools/cmake"
printf '#!/bin/sh\necho started >>"%s/game.log"\n' "$work" >"$work/build/bin/pentalink"
chmod +x "$work/tools/cmake" "$work/build/bin/pentalink"

run() { # make run with the stand-ins, the given environment settings first
    env -u MAKEFLAGS -u MFLAGS -u MAKELEVEL -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM \
        PATH="$work/tools:$PATH" "$@" \
        make --no-print-directory -C "$source_dir" run BUILD_DIR="$work/build" 2>&1
}
fail() {
    echo "FAIL: $*" >&2
    exit 1
}

said=$(run)
case "$said" in *"no display found"*) ;; *) fail "no word about the display: $said" ;; esac
[ ! -e "$work/cmake.log" ] || fail "built without a display: $(cat "$work/cmake.log")"
[ ! -e "$work/game.log" ] || fail "started without a display"

run DISPLAY=:99 >/dev/null
[ "$(cat "$work/cmake.log")" = "--build $work/build --target pentalink pentalink_data" ] ||
    fail "built: $(cat "$work/cmake.log")"
[ "$(cat "$work/game.log")" = started ] || fail "the game did not start"
echo "make run: checks the display first, builds only the game"
