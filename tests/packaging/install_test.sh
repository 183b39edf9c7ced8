#!/bin/sh
# SPDX-License-Identifier: MIT
# Tests of `cmake --install`: install_test.sh CMAKE BUILD_FOLDER SOURCE_FOLDER. What is installed below one
# folder works there, and still does when that folder is moved.
set -eu
cmake=$1
build=$2
sample=$3/samples/ohci-tree.txt

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
"$cmake" --install "$build" --prefix "$folder/first" >/dev/null
mv "$folder/first" "$folder/second"

python3 "$3/tests/expected_report.py" results "$sample" >"$folder/expected"
# The build folder must not be what is used.
(cd / && "$folder/second/bin/usbhcdiag" run --devices "$sample") >"$folder/report"
cmp "$folder/expected" "$folder/report"
(cd / && "$folder/second/bin/usbhcdiag" elements --devices "$sample") | grep -q '^0000:00:02.0 '
"$folder/second/bin/with-device-list" "$sample" "$folder/second/bin/usbdevices" | grep -q 'Desk Hub'
"$folder/second/bin/usbhcdiag-openpegasus" --help | grep -q register
for file in mof/cimhost.mof samples/ohci-tree.txt; do
    test -s "$folder/second/share/zorva-usb-diagnostics/$file"
done
documents=$folder/second/share/doc/zorva-usb-diagnostics
for file in README.md CHANGELOG.md administrators-guide.md; do
    test -s "$documents/$file"
done
# What is for those who work on the project stays with its source.
for file in ARCHITECTURE.md CONTRIBUTING.md decisions; do
    test ! -e "$documents/$file"
done
test -s "$folder/second/share/man/man1/usbhcdiag.1.gz"
test -s "$folder/second/lib/systemd/system/cimhost.service"
for program in usbhcdiag cimhost with-device-list; do
    test -s "$folder/second/share/bash-completion/completions/$program"
    test -s "$folder/second/share/zsh/vendor-completions/_$program"
    test -s "$folder/second/share/fish/vendor_completions.d/$program.fish"
done
# Where the debug log has no fixed place there is nothing to rotate.
test ! -e "$folder/second/etc/logrotate.d"
echo "all as expected"
