#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""usbhcdiag devices, held against what regular expressions find in the lists:
devices_test.py PROGRAMS SOURCES [unittest options]"""
import json
import os
import re
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path

from lists import LISTS, SAMPLES, devices_of, field
from namespaces import in_namespaces
from programs import USBHCDIAG, usbhcdiag

DESKTOP = SAMPLES / "uhci-ehci-desktop.txt"


def expected_devices(text):
    """Of each device of a list: port path, id, speed, drivers."""
    for block, _, _, _, path in devices_of(text):
        speed = field(r"Spd=(\S+)", block)
        vendor, product = field(r"Vendor=(\w+)", block), field(r"ProdID=(\w+)", block)
        active = re.search(r"^C:\*.*\n((?:[AIE]:.*\n?)*)", block, re.MULTILINE)
        drivers = re.findall(r"Driver=(.+)", active.group(1)) if active else []
        yield {"port_path": path, "id": vendor and "%s:%s" % (vendor, product),
               "speed": None if speed == "??" else float(speed), "drivers": list(dict.fromkeys(drivers)),
               "configured": active is not None, "is_described": "\nD:" in block}


def rows(output):
    """The cells of a table by its headings; columns are apart by two blanks at least."""
    lines = output.decode().splitlines()
    starts = [match.start() for match in re.finditer(r"\S+", lines[0])]
    for line in lines[1:]:
        yield [line[start:end].strip() for start, end in zip(starts, starts[1:] + [None])]


class Table(unittest.TestCase):
    def test_agrees_with_the_lists(self):
        self.assertTrue(LISTS)
        for path in LISTS:
            with self.subTest(path.name):
                run = usbhcdiag("devices", path)
                devices = list(expected_devices(path.read_text("latin-1")))
                if not devices:
                    self.assertEqual((run.stdout, run.returncode), (b"", 3))
                    continue
                self.assertEqual((run.stderr, run.returncode), (b"", 0))
                found = list(rows(run.stdout))
                self.assertEqual([row[0] for row in found], [d["port_path"] or "-" for d in devices])
                self.assertEqual([row[1] for row in found], [d["id"] or "-" for d in devices])
                self.assertEqual([row[2] for row in found],
                                 ["%g Mb/s" % d["speed"] if d["speed"] else "-" for d in devices])
                self.assertEqual([row[4] for row in found],
                                 [", ".join(d["drivers"]) or
                                  ("-" if d["configured"] or not d["is_described"] else "not configured")
                                  for d in devices])

    def test_marks_what_the_report_leaves_out(self):
        for path in LISTS:
            with self.subTest(path.name):
                run = usbhcdiag("run", "--json", "--devices", path)
                told = json.loads(run.stdout)
                left_out = {device["position"] for device in told["left_out"]}
                if told["devices_in_list"]:
                    marks = [row[5] for row in rows(usbhcdiag("devices", path).stdout)]
                    self.assertEqual(marks, ["no" if n + 1 in left_out else "yes" for n in range(len(marks))])

    def test_reads_a_pipe_and_standard_input(self):
        text = DESKTOP.read_bytes()
        expected = usbhcdiag("devices", DESKTOP).stdout
        self.assertEqual(usbhcdiag("devices", "-", input=text).stdout, expected)
        self.assertEqual(usbhcdiag("devices", "--devices", DESKTOP).stdout, expected)

    def test_filters(self):
        def paths(*words):
            run = usbhcdiag("devices", DESKTOP, *words)
            self.assertEqual((run.stderr, run.returncode), (b"", 0))
            return [row[0] for row in rows(run.stdout)]
        self.assertEqual(paths("--bus", "1"), ["usb1", "1-1", "1-2"])
        self.assertEqual(paths("--id", "0dd9"), ["2-1"])
        self.assertEqual(paths("--id", "0dda:0207"), ["1-2"])
        self.assertEqual(paths("--class", "printer"), ["2-1"])
        self.assertEqual(paths("--driver", "usbhid", "--bus", "1"), ["1-1", "1-2"])
        self.assertEqual(paths("--problems"), [])

    def test_names_the_problems(self):
        run = usbhcdiag("devices", "--problems", SAMPLES / "unconfigured-devices.txt")
        self.assertIn(b"no configuration is active", run.stdout)
        self.assertIn(b"PROBLEM", run.stdout.split(b"\n")[0])

    def test_tree_shows_every_device_once(self):
        for path in LISTS:
            with self.subTest(path.name):
                run = usbhcdiag("devices", "--tree", path)
                shown = re.findall(r"─ (\S+)", run.stdout.decode())
                devices = list(expected_devices(path.read_text("latin-1")))
                self.assertEqual(sorted(shown), sorted(d["port_path"] or "?" for d in devices))

    def test_says_what_is_wrong_with_the_command_line(self):
        for words, text in ((("--id", "x"), "--id takes"), (("--bus", "x"), "--bus takes"),
                            (("a", "--devices", "b"), "named twice"), (("a", "b"), "b")):
            run = usbhcdiag("devices", *words)
            self.assertEqual((run.returncode, run.stdout), (2, b""))
            self.assertIn(text, run.stderr.decode())

    def test_any_prefix_of_a_list_is_read(self):
        text = (SAMPLES / "xhci-today.txt").read_bytes()
        for length in range(0, len(text), 97):
            for words in ((), ("--tree",), ("--problems",)):
                run = usbhcdiag("devices", "-", *words, input=text[:length])
                self.assertIn(run.returncode, (0, 3), run.stderr)
                run.stdout.decode("utf-8")

    def test_noise_is_no_list(self):
        run = usbhcdiag("devices", "-", input=bytes(range(256)) * 65536)
        self.assertEqual((run.returncode, run.stdout), (3, b""))
        self.assertIn(b"nothing was read: - holds no USB device", run.stderr)


class Strings:
    """The texts of a hardware database, behind its nodes."""

    def __init__(self, start):
        self.start = start
        self.data = b"\0"

    def place(self, text):
        if text == "":
            return self.start
        self.data += text.encode() + b"\0"
        return self.start + len(self.data) - len(text.encode()) - 1


def hardware_database(vendor, product):
    """A hwdb.bin that names the vendor 0dda and its product 0101."""
    header, node, child, value = 80, 24, 16, 16
    sizes = [node + child, node + 2 * child, node + value, node + child, node + 2 * value]
    places = [header + sum(sizes[:i]) for i in range(5)]
    strings = Strings(header + sum(sizes))

    def packed(prefix, children, values):
        text = struct.pack("<QB7xQ", strings.place(prefix), len(children), len(values))
        text += b"".join(struct.pack("<B7xQ", ord(c), places[to]) for c, to in children)
        return text + b"".join(struct.pack("<QQ", strings.place(" " + k), strings.place(v)) for k, v in values)

    names = [("ID_VENDOR_FROM_DATABASE", vendor), ("ID_MODEL_FROM_DATABASE", product)]
    nodes = (packed("", [("u", 1)], []) + packed("sb:v0DDA", [("*", 2), ("p", 3)], []) +
             packed("", [], names[:1]) + packed("0101", [("*", 4)], []) + packed("", [], names))
    size = header + len(nodes) + len(strings.data)
    return struct.pack("<8s9Q", b"KSLPHHRH", 252, size, header, node, child, value, header, len(nodes),
                       len(strings.data)) + nodes + strings.data


class HardwareDatabase(unittest.TestCase):
    def devices(self, database, *words):
        with tempfile.TemporaryDirectory() as folder:
            Path(folder, "hwdb.bin").write_bytes(database)
            run = in_namespaces(os.geteuid() != 0,
                                "cp \"$1/hwdb.bin\" /dev/shm/hwdb.$$; mount -t tmpfs etc /etc; mkdir /etc/udev; "
                                "mv /dev/shm/hwdb.$$ /etc/udev/hwdb.bin; shift; exec \"$@\"",
                                folder, USBHCDIAG, "devices", str(DESKTOP), *words)
        self.assertEqual((run.stderr, run.returncode), ("", 0))
        return run.stdout

    def test_names_that_the_device_does_not_give_come_from_it_in_brackets(self):
        if b"libudev" not in subprocess.run(["ldd", USBHCDIAG], stdout=subprocess.PIPE, check=True).stdout:
            self.skipTest("skipped: built without libudev")
        if in_namespaces(os.geteuid() != 0, "mount -t tmpfs etc /etc").returncode != 0:
            self.skipTest("skipped: no namespaces here")
        shown = {row[0]: row[6] for row in rows(self.devices(hardware_database("Vend\x1b", "Prod")).encode())}
        self.assertEqual(shown["1-1"], "[Vend\ufffd] Two-button mouse")
        self.assertEqual(shown["1-2"], "[Vend\ufffd] Keyboard with media keys")
        self.assertEqual(shown["2-1"], "Oster & Wick Laser 44")
        # One that is none.
        self.assertNotIn("[", self.devices(b"KSLPHHRH"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
