#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Boots a real kernel on a machine with emulated USB controllers and checks what the programs of this
project make of the list that it prints.

usage: check_machine.py MACHINE KERNEL INITRAMFS

The expected reports are derived from that list by the independent script expected_report.py. Ends with 77
(ctest: skipped) where there is no INITRAMFS.
"""
import io
import os
import pathlib
import subprocess
import sys
import tarfile
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
import expected_report

BOOT_SECONDS = 300
SKIPPED = 77

DISK = "-blockdev driver=null-co,size=1048576,read-zeroes=on,node-name=disk{0} "

# Name: what QEMU adds to an empty machine; how many devices the kernel lists for it; what its list must
# show, so that a machine that lost its devices does not pass; its least size.
MACHINES = {
    "ohci-tree": (
        "-device pci-ohci,id=o0,num-ports=4 -device usb-hub,bus=o0.0,port=1"
        " -device usb-tablet,bus=o0.0,port=1.1 -device usb-kbd,bus=o0.0,port=2"
        " -device usb-mouse,bus=o0.0,port=3",
        5, (b"OHCI", b"Lev=02", b"Tablet", b"Keyboard", b"Mouse"), 1),
    "uhci-storage": (
        DISK.format(0) + "-device piix3-usb-uhci,id=u0 -device usb-storage,drive=disk0,bus=u0.0",
        2, (b"UHCI", b"usb-storage"), 1),
    "ehci-companions": (
        DISK.format(0) + "-M q35 -device ich9-usb-ehci1,id=e0,addr=1d.7,multifunction=on"
        " -device ich9-usb-uhci1,masterbus=e0.0,firstport=0,addr=1d.0,multifunction=on"
        " -device ich9-usb-uhci2,masterbus=e0.0,firstport=2,addr=1d.1"
        " -device ich9-usb-uhci3,masterbus=e0.0,firstport=4,addr=1d.2"
        " -device usb-storage,drive=disk0,bus=e0.0,port=1 -device usb-hub,bus=e0.0,port=3"
        " -device usb-mouse,bus=e0.0,port=3.2 -device usb-kbd,bus=e0.0,port=5",
        8, (b"EHCI", b"UHCI", b"Spd=480", b"Mouse", b"Keyboard"), 1),
    "xhci-mixed": (
        DISK.format(0) + "-device nec-usb-xhci,id=x0 -device usb-storage,drive=disk0,bus=x0.0,port=1"
        " -audiodev none,id=a0 -device usb-audio,audiodev=a0,bus=x0.0,port=2"
        " -chardev null,id=c0 -device usb-serial,chardev=c0,always-plugged=on,bus=x0.0,port=3"
        " -device usb-ccid,bus=x0.0,port=4",
        6, (b"xHCI", b"snd-usb-audio", b"ftdi_sio", b"Spd=5000", b"Driver=(none)"), 1),
    "long-list": (
        "".join(DISK.format(number) for number in range(7)) +
        "-device qemu-xhci,id=x0,p2=15,p3=15 -audiodev none,id=a0"
        " -device usb-audio,audiodev=a0,multi=on,bus=x0.0,port=1"
        " -device usb-audio,audiodev=a0,bus=x0.0,port=2 -device usb-hub,bus=x0.0,port=3"
        " -device usb-hub,bus=x0.0,port=3.1 -device usb-kbd,bus=x0.0,port=3.1.1"
        " -device usb-mouse,bus=x0.0,port=3.1.2 -device usb-tablet,bus=x0.0,port=3.1.3"
        " -device usb-wacom-tablet,bus=x0.0,port=3.1.4 -device usb-kbd,bus=x0.0,port=3.2"
        " -device usb-mouse,bus=x0.0,port=3.3" +
        "".join(" -device usb-storage,drive=disk%d,bus=x0.0,port=%d" % (n, n + 5) for n in range(6)) +
        " -device pci-ohci,id=o0,num-ports=15 -device usb-storage,drive=disk6,bus=o0.0,port=15"
        " -device usb-kbd,bus=o0.0,port=14",
        21, (b"OHCI", b"xHCI", b"Lev=03"), 8193),
    "no-usb": ("", 0, (), 0),
}


def boot(machine, devices, kernel, initramfs):
    """Runs the machine to its end and returns the files that it sent, by name."""
    with tempfile.TemporaryDirectory() as folder:
        sent = os.path.join(folder, "sent.tar")
        command = ["qemu-system-x86_64", "-accel", "tcg", "-m", "512", "-nodefaults", "-no-reboot",
                   "-display", "none", "-serial", "stdio", "-serial", "file:" + sent,
                   "-kernel", kernel, "-initrd", initramfs,
                   "-append", "console=ttyS0 quiet panic=-1 usb_devices=%d" % devices]
        run = subprocess.run(command + machine.split(), stdin=subprocess.DEVNULL, check=False,
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=BOOT_SECONDS)
        print(run.stdout.decode("latin-1"))
        if run.returncode != 0 or os.path.getsize(sent) == 0:
            return {}
        with open(sent, "rb") as file:
            archive = tarfile.open(fileobj=io.BytesIO(file.read()))
        return {os.path.basename(member.name): archive.extractfile(member).read()
                for member in archive.getmembers() if member.isfile()}


def without_bandwidth(list_bytes):
    """What sysfs tells of the list."""
    return b"".join(line for line in list_bytes.splitlines(keepends=True) if not line.startswith(b"B:"))


def expectation(job, list_bytes):
    """The output and the exit status that `job` must have had."""
    if job == "driver":
        return expected_report.driver_report(list_bytes)
    if job == "sysfs":
        return without_bandwidth(list_bytes), 0
    if job == "user":
        list_bytes = without_bandwidth(list_bytes)
    # The command for people: it tells a list without anything to report by its exit status.
    results = "".join(line + "\n" for line in expected_report.test_results(list_bytes))
    return results.encode("utf-8"), 0 if list_bytes else 3


def complaints(name, files):
    """Everything that is wrong with what the machine `name` sent."""
    _, devices, shown, least_size = MACHINES[name]
    list_bytes = files["list"]
    found = list_bytes.count(b"\nT:")
    if found != devices:
        yield "the kernel lists %d devices, not %d" % (found, devices)
    for text in shown:
        if text not in list_bytes:
            yield "the list does not show %s" % text.decode()
    if len(list_bytes) < least_size:
        yield "the list has %d bytes only" % len(list_bytes)
    if files["list.after"] != list_bytes:
        yield "the list did not stand still"
    jobs = [file[:-len(".status")] for file in files if file.endswith(".status")]
    if not jobs:
        yield "no job ran"
    for job in jobs:
        output, status = expectation(job, list_bytes)
        if files[job + ".output"] != output:
            yield "%s printed\n%s\ninstead of\n%s" % (
                job, files[job + ".output"].decode("latin-1"), output.decode("latin-1"))
        if int(files[job + ".status"]) != status:
            yield "%s ended with %s instead of %d, saying %s" % (
                job, files[job + ".status"].decode().strip(), status,
                files[job + ".errors"].decode("latin-1"))
    for job, is_made in (("run", False), ("user", bool(list_bytes))):
        if (b"made from /sys/bus/usb/devices" in files[job + ".errors"]) != is_made:
            yield "%s says of its list: %s" % (job, files[job + ".errors"].decode("latin-1"))


def main(arguments):
    name, kernel, initramfs = arguments
    machine, devices, _, _ = MACHINES[name]
    if not os.path.exists(initramfs):
        print("skipped: no system to run in the virtual machine, see the test vm_guest")
        return SKIPPED
    files = boot(machine, devices, kernel, initramfs)
    if not files:
        print("wrong: the machine did not come to its end")
        return 1
    print("list of %d bytes:\n%s" % (len(files["list"]), files["list"].decode("latin-1")))
    wrong = list(complaints(name, files))
    for complaint in wrong:
        print("wrong:", complaint)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
