#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""usbhcdiag diff: diff_test.py PROGRAMS SOURCES [unittest options]"""
import json
import os
import pty
import subprocess
import tempfile
import unittest
from pathlib import Path

from lists import LISTS, SAMPLES
from namespaces import PATIENCE
from programs import USBHCDIAG, usbhcdiag

TODAY = SAMPLES / "xhci-today.txt"


def diff(*words, **options):
    return usbhcdiag("diff", *words, **options)


class Diff(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def file(self, content, name="list"):
        path = self.folder / name
        path.write_bytes(content)
        return path

    def changed(self, *changes):
        """The sample of today with texts replaced, each of which it must hold."""
        text = TODAY.read_bytes()
        for old, new in changes:
            self.assertIn(old, text)
            text = text.replace(old, new, 1)
        return self.file(text)

    def test_a_list_is_the_same_as_itself(self):
        self.assertTrue(LISTS)
        for path in LISTS:
            with self.subTest(path.name):
                run = diff(path, path)
                self.assertEqual((run.stdout, run.stderr, run.returncode), (b"", b"", 0))
                run = diff(path, path, "--json")
                self.assertEqual((run.stderr, run.returncode), (b"", 0))
                self.assertEqual(json.loads(run.stdout),
                                 {"format_version": 1, "same": True, "differences": []})

    def test_a_redacted_list_differs_in_serial_numbers_alone(self):
        for path in LISTS:
            with self.subTest(path.name):
                redacted = usbhcdiag("record", "--redact", "-d", path).stdout
                run = diff(path, "-", "--json", input=redacted)
                self.assertIn(run.returncode, (0, 1), run.stderr)
                for difference in json.loads(run.stdout)["differences"]:
                    self.assertEqual((difference["kind"], difference["changed"]), ("changed", ["serial"]))

    def test_each_device_of_a_list_is_added_to_nothing(self):
        for path in LISTS:
            with self.subTest(path.name):
                count = path.read_bytes().count(b"\nT:") + path.read_bytes().startswith(b"T:")
                for words, kind in ((("-", path), "added"), ((path, "-"), "removed")):
                    run = diff(*words, "--json", input=b"")
                    self.assertEqual(run.returncode, 1 if count else 0)
                    self.assertEqual([d["kind"] for d in json.loads(run.stdout)["differences"]], [kind] * count)

    def test_says_what_has_changed(self):
        after = self.changed((b"Port=01 Cnt=01 Dev#=  2", b"Port=02 Cnt=01 Dev#=  9"),
                             (b"Spd=5000 MxCh= 0", b"Spd=480  MxCh= 0"),
                             (b"Driver=snd-usb-audio", b"Driver=(none)"))
        run = diff(TODAY, after)
        self.assertEqual((run.stderr, run.returncode), (b"", 1))
        self.assertEqual(run.stdout.decode(),
                         "CHANGE   PORT  ID         NAME                   WHAT\n"
                         "moved    1-3   0ddf:0020  Tern Compact Keyboard  was at 1-2\n"
                         "changed  1-5   0de0:5150  Wavelet Headset        driver of interface 0: (none), was snd-usb-audio\n"
                         "changed  2-3   0de1:3300  Strata Archive SSD     480 Mb/s, was 5000 Mb/s\n")
        told = json.loads(diff(TODAY, "-", "--json", input=after.read_bytes()).stdout)
        self.assertFalse(told["same"])
        self.assertEqual([(d["kind"], d["changed"]) for d in told["differences"]],
                         [("moved", ["port"]), ("changed", ["driver"]), ("changed", ["speed"])])
        self.assertEqual(told["differences"][2]["before"]["speed_mbps"], 5000)
        self.assertEqual(told["differences"][2]["after"]["speed_mbps"], 480)

    def test_what_cannot_be_compared_has_a_status_of_its_own(self):
        none = self.folder / "none"
        for words in ((none, TODAY), (TODAY, none)):
            run = diff(*words)
            self.assertEqual((run.stdout, run.returncode), (b"", 3))
            self.assertIn(b"none: No such file or directory", run.stderr)
        run = diff(TODAY, self.file(b"hello\n"))
        self.assertEqual((run.stdout, run.returncode), (b"", 3))
        self.assertIn(b'holds no USB device (no line that begins with "T:")', run.stderr)
        run = diff("-", "-")
        self.assertEqual((run.stdout, run.returncode), (b"", 2))

    def test_a_terminal_is_spared_control_characters(self):
        path = self.file(b"T:  Bus=01\nS:  Product=\x1b[31mred\xc2\x9b\n")
        for words in ((), ("--json",)):
            leader, terminal = pty.openpty()
            run = subprocess.run([USBHCDIAG, "diff", path, "-", *words], stdin=subprocess.DEVNULL,
                                 stdout=terminal, timeout=PATIENCE, check=False,
                                 env=dict(os.environ, NO_COLOR="1"))
            os.close(terminal)
            shown = os.read(leader, 4096)
            os.close(leader)
            self.assertEqual(run.returncode, 1)
            self.assertNotIn(b"\x1b", shown)
            self.assertNotIn(b"\xc2\x9b", shown)
            self.assertIn(b"red", shown)


if __name__ == "__main__":
    unittest.main(verbosity=2)
