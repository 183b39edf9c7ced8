#!/bin/bash
# SPDX-License-Identifier: MIT
# Tests of the shell completion: completion_test.sh COMPLETION USBHCDIAG. What is offered is compared with
# what the program's help names.
set -u
# shellcheck source=/dev/null
source "$1"
usbhcdiag=$2
failures=0

# complete_after WORD...: what is offered for the last word, sorted, in one line.
complete_after() {
    COMP_WORDS=(usbhcdiag "$@")
    COMP_CWORD=$#
    _usbhcdiag
    printf '%s\n' "${COMPREPLY[@]}" | sort | xargs
}

expect() { # WHAT ACTUAL EXPECTED
    if [ "$2" != "$3" ]; then
        printf '%s:\n  offered:  %s\n  expected: %s\n' "$1" "$2" "$3"
        failures=$((failures + 1))
    fi
}

commands=$("$usbhcdiag" --help | sed -n '/^Commands/,/^$/s/^  \([a-z]*\) .*/\1/p' | sort | xargs)
expect "the help names the commands" "$commands" "clear elements mof results run tests"
expect "commands after help" "$(complete_after help '')" "$commands"

for command in $commands; do
    options=$("$usbhcdiag" "$command" --help | sed -n '/^Options/,/^$/s/^  -., \(--[a-z]*\).*/\1/p' |
        sort | xargs)
    expect "options of $command" "$(complete_after "$command" '')" "$options"
done

expect "the beginning of a command" "$(complete_after re)" "results"
expect "the beginning of an option" "$(complete_after run --e)" "--element"
expect "a command behind an option" "$(complete_after --server http m)" "mof"
expect "a device id" "$(complete_after run --element '')" ""
folder=$(mktemp -d)
touch "$folder/list one.txt"
expect "a file name" "$(complete_after run --devices "$folder/li" | xargs -d '\n')" "$folder/list one.txt"
rm -r "$folder"

[ $failures -eq 0 ] && echo "all as expected"
exit $((failures > 0))
