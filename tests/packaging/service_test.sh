#!/bin/sh
# SPDX-License-Identifier: MIT
# Tests of the unit for systemd: service_test.sh UNIT PROGRAM. systemd takes it, and thinks that little is left
# open. PROGRAM stands for the installed one. Exit status 77, with a line that says why, where systemd cannot be asked.
set -eu
unit=$1
program=$2

skip() {
    echo "skipped: $*"
    exit 77
}

command -v systemd-analyze >/dev/null || skip "there is no systemd-analyze (Debian package systemd)"
systemd-analyze security --help | grep -q -e '--offline' || skip "systemd-analyze has no --offline before version 250"

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
sed "s|^ExecStart=[^ ]*|ExecStart=$program|" "$unit" >"$folder/cimhost.service"
grep -q "^ExecStart=$program " "$folder/cimhost.service"

fail() { # FILE
    cat "$1"
    exit 1
}

systemd-analyze verify --man=no "$folder/cimhost.service" >"$folder/complaints" 2>&1 || fail "$folder/complaints"
# What it does not know it ignores, says so, and succeeds.
! grep -q cimhost.service "$folder/complaints" || fail "$folder/complaints"

# At most 2.0 of 10.
systemd-analyze security --no-pager --offline=true --threshold=20 "$folder/cimhost.service" >"$folder/findings" ||
    fail "$folder/findings"
tail -1 "$folder/findings"
