#!/bin/sh
# Strips an installed executable for the Debian package as Debian's own tools do: symbols, and
# the compiler's .comment and .note sections that nothing at run time reads.
exec strip --remove-section=.comment --remove-section=.note "$@"
