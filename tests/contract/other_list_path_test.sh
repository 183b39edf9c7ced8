#!/bin/sh
# SPDX-License-Identifier: MIT
# Tests of a build that reads the device list elsewhere: other_list_path_test.sh CMAKE SOURCE_FOLDER COMPILER.
# What is installed for people and for OpenPegasus names that path, and nowhere the usual one. Only
# configures.
set -u
cmake=$1
source=$2
compiler=$3
failures=0
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

complain() {
    echo "$*"
    failures=$((failures + 1))
}

configure() { # PATH
    "$cmake" -S "$source" -B "$folder/build" -DCMAKE_CXX_COMPILER="$compiler" -DPEGASUS_ROOT_DIR=OFF \
        -DZORVA_TESTS=OFF "-DZORVA_DEVICE_LIST_PATH=$1" >"$folder/output" 2>&1
}

# shows_list_at PATH COVERED_FOLDER
shows_list_at() {
    drop_in=$folder/build/share/zorva-usb-diagnostics/systemd/50-usb-device-list.conf
    configure "$1" || complain "cannot configure for $1: $(cat "$folder/output")"
    [ "$(grep -c "^TemporaryFileSystem=$2:mode=0755\$" "$drop_in")" = 1 ] ||
        complain "the drop-in does not cover $2: $(cat "$drop_in")"
    [ "$(grep -c "^BindReadOnlyPaths=-/sys/kernel/debug/usb/devices:$1\$" "$drop_in")" = 1 ] ||
        complain "the drop-in does not show the list at $1: $(cat "$drop_in")"
}

shows_list_at /run/zorva/usb-devices /run/zorva
script=$folder/build/bin/usbhcdiag-openpegasus
"$script" --help | grep -q '/run/zorva/usb-devices' || complain "$script --help names another path"
for page in cimhost usbdevices usbhcdiag usbhcdiag-openpegasus with-device-list; do
    grep -q '/run/zorva/usb-devices' "$folder/build/share/man/man1/$page.1" ||
        complain "the manual page $page names another path"
done
left=$(grep -rl /proc/bus "$folder/build/bin" "$folder/build/share")
[ -z "$left" ] || complain "the usual path is still in: $left"

shows_list_at /proc/bus/usb/devices /proc/bus
shows_list_at /proc/bus/devices /proc/bus

for path in devices "" /devices /etc/devices /proc/devices "/run/a b/devices" '/run/"/devices' /run/zorva/ /run//devices \
    /run/zorva/../devices; do
    if configure "$path"; then
        complain "no complaint about the path \"$path\""
    fi
    grep -q ZORVA_DEVICE_LIST_PATH "$folder/output" || complain "$(cat "$folder/output")"
done

[ $failures -eq 0 ] && echo "all as expected"
exit $((failures > 0))
