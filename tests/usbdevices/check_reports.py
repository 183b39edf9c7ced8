#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares the stand-alone driver with an independent program, for every list of a folder.

usage: check_reports.py WITH_DEVICE_LIST USBDEVICES FOLDER

Ends with 77 (ctest: skipped) if the folder or a private view of the device list is not available.
"""
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
import expected_report

SKIPPED = 77


def complaint_about(run, list_bytes):
    """What is wrong with a run of the driver on `list_bytes`; empty if nothing is."""
    output, status = expected_report.driver_report(list_bytes)
    if run.stdout != output:
        return "printed\n%s\ninstead of\n%s" % (run.stdout.decode("latin-1"), output.decode("latin-1"))
    if run.returncode != status:
        return "ended with %d instead of %d" % (run.returncode, status)
    if (status != 0) != run.stderr.startswith(b"usbdevices: device "):
        return "said on standard error: %s" % run.stderr.decode("latin-1")
    return ""


def main(arguments):
    with_device_list, usbdevices, folder = arguments
    lists = sorted(pathlib.Path(folder).glob("*.txt"))
    if not lists:
        print("skipped: no device lists in", folder)
        return SKIPPED
    possible = subprocess.run([with_device_list, lists[0], "true"], capture_output=True, check=False)
    if possible.returncode != 0:
        print("skipped:", possible.stderr.decode().strip())
        return SKIPPED
    wrong = 0
    for path in lists:
        run = subprocess.run([with_device_list, path, usbdevices], capture_output=True, check=False)
        complaint = complaint_about(run, path.read_bytes())
        if complaint:
            wrong += 1
            print("%s: %s" % (path.name, complaint))
    print("%d lists, %d wrong reports" % (len(lists), wrong))
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
