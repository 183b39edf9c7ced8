#!/bin/sh
# SPDX-License-Identifier: MIT
# Tests of the annotations of base/ThreadSafety.h: thread_safety_test.sh CLANG SOURCE_FOLDER. Clang takes the proper
# use and refuses each kind of misuse for the reason that it is one.
set -u
output=$(mktemp)
trap 'rm -f "$output"' EXIT
failures=0

compiles() { # CLANG SOURCE_FOLDER MISUSE
    "$1" -std=c++17 -Wall -Wextra -Wthread-safety -Werror -fsyntax-only -DMISUSE="$3" -I"$2" \
        "$2/tests/base/thread_safety_misuse.cpp" >"$output" 2>&1
}

complain() {
    echo "$*"
    cat "$output"
    failures=$((failures + 1))
}

compiles "$1" "$2" 0 || complain "The proper use does not compile:"
for misuse in 1 2 3 4; do
    compiles "$1" "$2" $misuse && complain "Misuse $misuse compiles."
    grep -q 'Wthread-safety-analysis' "$output" || complain "Misuse $misuse is refused for another reason:"
done
[ $failures = 0 ] && echo "all as expected"
exit $((failures > 0))
