#!/bin/sh
# SPDX-License-Identifier: MIT
# Tests of the manual pages: manual_test.sh FOLDER USBHCDIAG. Each page formats without a warning, and that
# of usbhcdiag names every command and option of its help. Exit status 77 where there is no man.
set -u
pages=$1
usbhcdiag=$2
failures=0
options=$(mktemp)
trap 'rm -f "$options"' EXIT

complain() {
    echo "$*"
    failures=$((failures + 1))
}

if ! command -v man >/dev/null || ! man --version >/dev/null 2>&1; then
    echo "skipped: there is no man (Debian package man-db)"
    exit 77
fi
for page in "$pages"/*.[18]; do
    warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -E UTF-8 -l "$page" 2>&1 >/dev/null)
    [ -z "$warnings" ] || complain "$page: $warnings"
done

text=$(LC_ALL=C.UTF-8 MANWIDTH=200 man -E UTF-8 -l "$pages/usbhcdiag.1" | col -bx)
"$usbhcdiag" --help | sed -n 's/^  \(-.\), \(--[a-z]*\).*/\1 \2/p' >"$options"
while read -r short long; do
    printf '%s\n' "$text" | grep -qE "^ +$short( [A-Z]+)?, $long" || complain "usbhcdiag.1 does not explain $long"
done <"$options"
for name in $("$usbhcdiag" --help | sed -n '/^Commands/,/^$/s/^  \([a-z]*\) .*/\1/p'); do
    printf '%s\n' "$text" | grep -qE "^ +usbhcdiag $name" || complain "usbhcdiag.1 has no synopsis of $name"
    printf '%s\n' "$text" | grep -qE "^     $name( |\$)" || complain "usbhcdiag.1 does not explain $name"
done

[ $failures -eq 0 ] && echo "all as expected"
exit $((failures > 0))
