# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# What the test of the Debian package does inside the bare system: /package.deb, the lists of samples and
# what must be reported about them lie in the root folder.
failures=0
scratch=$(mktemp -d)

check() { # WHAT COMMAND...
    local what=$1
    shift
    if "$@" >"$scratch/output" 2>&1; then
        echo "ok      $what"
    else
        echo "FAILED  $what: $*"
        cat "$scratch/output"
        failures=$((failures + 1))
    fi
}

exits_with() { # STATUS COMMAND...
    local expected=$1 status=0
    shift
    "$@" || status=$?
    echo "exit status $status, expected $expected"
    [ "$status" = "$expected" ]
}

reports() { # SAMPLE [PREFIX OF THE COMMAND]...
    local sample=$1
    shift
    "$@" usbhcdiag run --devices "/usr/share/zorva-usb-diagnostics/samples/$sample" >"$scratch/report" &&
        diff "/expected-$sample" "$scratch/report"
}

are_gone() {
    left=$(ls -d "$@" 2>/dev/null) || true
    echo "$left"
    [ -z "$left" ]
}

as_user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
log=/var/log/zorva-usb-diagnostics/ZORVA_UsbHcProv.log
package=zorva-usb-diagnostics

apt-get -qq update >/dev/null
export DEBIAN_FRONTEND=noninteractive
apt-get -qq install -y --no-install-recommends /package.deb >"$scratch/install" 2>&1 || {
    cat "$scratch/install"
    exit 1
}

check "the files are as packaged" dpkg --verify $package
for program in usbhcdiag cimhost; do
    check "$program tells its version" sh -c "$program --version | grep -q '^$program [0-9]'"
done
for expected in /expected-*; do
    sample=${expected#/expected-}
    check "  $sample, as root" reports "$sample"
    if unshare --user true 2>/dev/null; then
        check "  $sample, as an ordinary user" reports "$sample" "${as_user[@]}"
    else
        echo "skipped   $sample, as an ordinary user: this kernel allows no user namespaces"
    fi
done
check "the elements of a list are listed" sh -c "usbhcdiag elements -d /usr/share/$package/samples/ohci-tree.txt | grep -q '^0000:00:02.0'"
check "the stand-alone driver runs" sh -c "with-device-list /usr/share/$package/samples/ohci-tree.txt usbdevices | grep -q 'Desk Hub'"
check "an empty list is told from a good run" exits_with 3 usbhcdiag run --devices /dev/null
check "the debug log lies in its folder" test -s $log
check "which is closed to others" sh -c "[ \"\$(stat -c '%a %U %G' ${log%/*})\" = '750 root root' ]"
check "no process is left" sh -c '! pgrep cimhost 2>/dev/null && ! ls -l /proc/[0-9]*/exe 2>/dev/null | grep cimhost'
check "the manual pages are there" test -s /usr/share/man/man1/usbhcdiag.1.gz
check "those of forms, too" test -s /usr/share/man/man5/usbhcdiag-json.5.gz
check "the schema is there" test -s /usr/share/zorva-usb-diagnostics/devices.schema.json
for program in usbhcdiag cimhost with-device-list; do
    check "the completion of $program loads" bash -c "source /usr/share/bash-completion/completions/$program && complete -p $program"
    check "  for zsh and fish it is there" test -s /usr/share/zsh/vendor-completions/_$program -a -s /usr/share/fish/vendor_completions.d/$program.fish
done
check "the registration command is there" sh -c 'usbhcdiag-openpegasus --help | grep -q register'
check "the service is there" grep -q '^ExecStart=/usr/bin/cimhost ' /usr/lib/systemd/system/cimhost.service
check "and is not enabled" are_gone /etc/systemd/system/*/cimhost.service
check "the package installs again over itself" apt-get -qq install -y --reinstall /package.deb

check "logrotate can be installed" apt-get -qq install -y --no-install-recommends logrotate
check "logrotate takes the entry" logrotate --force --state "$scratch/state" /etc/logrotate.d/$package
check "the log was rotated" test -s $log.1 -o -s $log.1.gz
check "and is written again" sh -c "usbhcdiag tests >/dev/null && test -s $log"

check "the package can be purged" apt-get -qq purge -y $package
check "and leaves nothing behind" are_gone /usr/bin/usbhcdiag /usr/share/$package /usr/lib/*/$package \
    /etc/logrotate.d/$package /var/log/$package /usr/lib/systemd/system/cimhost.service
exit $((failures > 0))
