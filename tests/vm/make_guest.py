#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Packs what the virtual machine runs on: a small system in memory, with programs of this project.

usage: make_guest.py KERNEL_FOLDER OUTPUT INIT JOBS FILE=PLACE...

KERNEL_FOLDER is what scripts/fetch-kernel fills. OUTPUT becomes the initramfs. INIT is its first process,
JOBS what that runs: a line per job, with its name and its command line. Each FILE is put at PLACE, together
with the shared libraries that it needs.

Ends with 77 (ctest: skipped) where the kernel or a tool is missing.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77

# Drivers of devices first, then those of controllers; what they need is found out.
MODULES = ("hid-generic", "usbhid", "wacom", "usb-storage", "ftdi_sio", "snd-usb-audio",
           "ohci-pci", "uhci-hcd", "ehci-pci", "xhci-pci")


def modules_with_needs(folder):
    """The files of MODULES and of all that they need, in an order in which they can be loaded."""
    release = next((folder / "lib/modules").iterdir())
    subprocess.run(["depmod", "-b", folder, release.name], check=True)
    needs = {}
    for line in (release / "modules.dep").read_text().splitlines():
        file, _, needed = line.partition(":")
        needs[file] = needed.split()
    by_name = {re.sub(r"\.ko.*$", "", os.path.basename(file)).replace("_", "-"): file for file in needs}
    order = []
    for name in MODULES:
        file = by_name[name.replace("_", "-")]
        # modules.dep names what is needed first in last place.
        order += [needed for needed in reversed(needs[file]) if needed not in order]
        order += [file] if file not in order else []
    return [release / file for file in order]


def libraries_of(program):
    """The shared libraries that `program` needs."""
    listing = subprocess.run(["ldd", program], stdout=subprocess.PIPE, check=False).stdout.decode()
    return re.findall(r"(?:=> |^\s*)(/\S+) \(", listing, re.MULTILINE)


def put(root, source, place, mode=0o755):
    target = root / place.lstrip("/")
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copyfile(source, target)
    target.chmod(mode)


def main(arguments):
    kernel, output, init, jobs = map(pathlib.Path, arguments[:4])
    if not (kernel / "complete").exists():
        print("skipped: no kernel in %s; scripts/fetch-kernel brings one" % kernel)
        return SKIPPED
    busybox = shutil.which("busybox")
    missing = [tool for tool in ("busybox", "depmod", "cpio", "qemu-system-x86_64")
               if not shutil.which(tool, path=os.environ.get("PATH", "") + ":/usr/sbin:/sbin")]
    if missing:
        print("skipped: this machine lacks", ", ".join(missing))
        return SKIPPED
    os.environ["PATH"] += ":/usr/sbin:/sbin"
    with tempfile.TemporaryDirectory() as name:
        root = pathlib.Path(name)
        for folder in ("bin", "dev", "proc", "sys", "modules", "tmp"):
            (root / folder).mkdir()
        put(root, busybox, "bin/busybox")
        put(root, init, "init")
        put(root, jobs, "jobs")
        modules = modules_with_needs(kernel)
        for module in modules:
            put(root, module, "modules/" + module.name)
        (root / "modules/order").write_text("".join(module.name + "\n" for module in modules))
        for pair in arguments[4:]:
            source, _, place = pair.partition("=")
            put(root, source, place)
            for library in libraries_of(source):
                put(root, library, library)
        names = subprocess.run(["find", ".", "-print0"], cwd=root, check=True, stdout=subprocess.PIPE)
        with open(output, "wb") as file:
            subprocess.run(["cpio", "--null", "--create", "--format=newc", "--owner=0:0", "--quiet"],
                           cwd=root, check=True, input=names.stdout, stdout=file)
    print("%d modules, %d files of the project" % (len(modules), len(arguments) - 4))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
