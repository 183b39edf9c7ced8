#!/bin/bash
# SPDX-License-Identifier: MIT
# Tests of the Debian package: package_test.sh SOURCE_FOLDER WORK_FOLDER
# Builds the package, makes a bare Debian 12 with debootstrap (once; each run works on a copy), installs the
# package there with apt-get, has it do its work as root and as an ordinary user, and removes it again.
# Exit status 77, with a line that says why, where the machine cannot do that.
set -eu
source_folder=$1
work=$2

skip() {
    echo "skipped: $*"
    exit 77
}

[ "$(id -u)" = 0 ] || skip "making a Debian system needs root"
for program in debootstrap:debootstrap dpkg-shlibdeps:dpkg-dev file:file unshare:util-linux; do
    command -v "${program%:*}" >/dev/null || skip "there is no ${program%:*} (Debian package ${program#*:})"
done
unshare --mount --pid --fork true 2>/dev/null || skip "this machine allows no new mount namespaces"

mkdir -p "$work"
(
    cd "$source_folder"
    cmake --preset package -B "$work/build"
    cmake --build "$work/build"
)
rm -f "$work"/build/*.deb
(cd "$work/build" && cpack)
package=$(echo "$work"/build/*.deb)

if [ ! -e "$work/bare.complete" ]; then
    rm -rf "$work/bare"
    if ! debootstrap --variant=minbase bookworm "$work/bare" >"$work/debootstrap.log" 2>&1; then
        tail -5 "$work/debootstrap.log"
        skip "debootstrap got no Debian 12, see $work/debootstrap.log"
    fi
    touch "$work/bare.complete"
fi
rm -rf "$work/root"
cp -a --reflink=auto "$work/bare" "$work/root"
cp "$package" "$work/root/package.deb"
cp /etc/resolv.conf "$work/root/etc/resolv.conf"
cp "$source_folder/tests/packaging/inside.sh" "$work/root/"
for list in "$source_folder"/samples/*.txt; do
    python3 "$source_folder/tests/expected_report.py" results "$list" >"$work/root/expected-$(basename "$list")"
done

# A namespace of its own, whose root folder really is the new system: no mount of the test outlives it, and
# ordinary users may make user namespaces there, which chroot would forbid them.
status=0
# shellcheck disable=SC2016 # the inner shell's variables
unshare --mount --pid --fork --propagation private sh -eu -c '
    mount --bind "$1" "$1"
    cd "$1"
    mount -t proc proc proc
    mount --rbind /dev dev
    mount -t tmpfs tmpfs tmp
    pivot_root . mnt
    umount -l /mnt
    exec env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 http_proxy="${http_proxy:-}" \
        https_proxy="${https_proxy:-}" bash -eu /inside.sh
' sh "$work/root" || status=$?
rm -rf "$work/root"
exit $status
