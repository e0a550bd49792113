#!/usr/bin/env bash
# `make run`: says in one line what to do when there is no display to show the game on, before
# anything is built; otherwise configures when needed, builds only the game (the program and its
# data files, not the tests) and starts it.
#
#   scripts/run.sh <build folder>      (make passes MAKE, used for the configure step)
set -u
build=$1
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
    echo "make run: no display found (DISPLAY is not set); start it under a virtual screen with: xvfb-run make run" >&2
    # Not a failure of the build: there is simply nowhere to show the window.
    exit 0
fi
set -e
"${MAKE:-make}" --no-print-directory configure
cmake --build "$build" --target pentalink pentalink_data
# Virtual screens started by root often come without a runtime folder; give Qt a private one
# rather than let it warn about it.
if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
    runtime="${TMPDIR:-/tmp}/pentalink-runtime-$(id -u)"
    if mkdir -p -m 700 "$runtime" 2>/dev/null && [ -O "$runtime" ]; then
        chmod 700 "$runtime" && export XDG_RUNTIME_DIR="$runtime"
    fi
fi
exec "$build/bin/pentalink"
