#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs the program given as argument: with a race in it, which must be found, then as it is, where none may be.
set -eu
program=$1
# Without address randomisation, which may put things where the sanitizer does not expect them; not every container
# lets it be switched off.
start=
if setarch -R true 2> /dev/null; then
    start="setarch -R"
fi
if ! $start "$program" idle; then
    echo "WARNING: the thread sanitizer cannot start on this machine, nothing was checked"
    exit 0
fi
if ! $start "$program" race 2>&1 | grep -q "WARNING: ThreadSanitizer: data race"; then
    echo "The race that is there on purpose was not found"
    exit 1
fi
exec $start "$program"
