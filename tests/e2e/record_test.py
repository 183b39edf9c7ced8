#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""usbhcdiag record: record_test.py PROGRAMS SOURCES [unittest options]"""
import os
import pty
import re
import stat
import subprocess
import tempfile
import unittest
from pathlib import Path

from lists import LISTS, SAMPLES
from namespaces import PATIENCE
from programs import USBHCDIAG, usbhcdiag

TODAY = SAMPLES / "xhci-today.txt"


def serials(text):
    """Of each device that is no root hub: its serial number."""
    for block in re.split(rb"^(?=T:)", text, flags=re.MULTILINE)[1:]:
        if not re.match(rb"T:.* Lev=00", block):
            yield from re.findall(rb"SerialNumber=(.*)", block)


class Record(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def test_gives_a_recorded_list_back_byte_for_byte(self):
        self.assertTrue(LISTS)
        for path in LISTS:
            with self.subTest(path.name):
                run = usbhcdiag("record", "--devices", path)
                self.assertEqual(run.stdout, path.read_bytes())
                # One capture is of a machine without USB.
                self.assertEqual(run.returncode, 0 if b"T:" in run.stdout else 3, run.stderr)
                self.assertEqual(run.stderr == b"", run.returncode == 0)
        odd = b"T:  Bus=01\r\nS:  Product=\xff\x00\x1b[0m\r\nnoise"
        self.assertEqual(usbhcdiag("record", "-d", "-", input=odd).stdout, odd)

    def test_what_is_no_list_is_said(self):
        run = usbhcdiag("record", "-d", "-", input=b"hello\n")
        self.assertEqual((run.stdout, run.returncode), (b"hello\n", 3))
        self.assertEqual(run.stderr.splitlines()[0], b"usbhcdiag: nothing was read: - holds no USB device "
                                                     b"(no line that begins with \"T:\").")

    def test_redacted_lists_have_no_serial_number_and_replay_as_before(self):
        told = 0
        for path in LISTS:
            with self.subTest(path.name):
                text = path.read_bytes()
                redacted = usbhcdiag("record", "--redact", "--devices", path).stdout
                self.assertEqual([len(line) for line in redacted.split(b"\n")],
                                 [len(line) for line in text.split(b"\n")])
                before, after = list(serials(text)), list(serials(redacted))
                told += len(before)
                for serial in filter(bytes.strip, before):
                    self.assertNotIn(serial, after)
                # The same serial number, the same placeholder; another, another.
                self.assertEqual([before.index(serial) for serial in before],
                                 [after.index(serial) for serial in after])
                if before:
                    report, of_redacted = (
                        [line for line in usbhcdiag("run", "-d", "-", input=kept).stdout.splitlines()
                         if not line.startswith(b"Serial Number")] for kept in (text, redacted))
                    self.assertEqual(report, of_redacted)
        self.assertGreater(told, 0)

    def test_writes_a_file_whole(self):
        written = self.folder / "list.txt"
        written.write_bytes(b"old")
        run = usbhcdiag("record", "--devices", TODAY, "-o", written, umask=0o027)
        self.assertEqual((run.stdout, run.stderr, run.returncode), (b"", b"", 0))
        self.assertEqual(written.read_bytes(), TODAY.read_bytes())
        self.assertEqual(stat.S_IMODE(written.stat().st_mode), 0o640)
        self.assertEqual(os.listdir(self.folder), ["list.txt"])
        # "-" is no file.
        run = usbhcdiag("record", "--devices", TODAY, "-o", "-", cwd=self.folder)
        self.assertEqual((run.stdout, run.stderr, run.returncode), (TODAY.read_bytes(), b"", 0))
        self.assertEqual(os.listdir(self.folder), ["list.txt"])
        # A list may take the place of what it was read from.
        run = usbhcdiag("record", "--redact", "--devices", written, "--output", written)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(written.read_bytes(), usbhcdiag("record", "--redact", "-d", TODAY).stdout)

    def test_what_is_no_file_is_not_replaced(self):
        run = usbhcdiag("record", "--devices", TODAY, "-o", "/dev/null")
        self.assertEqual((run.stdout, run.returncode), (b"", 1))
        self.assertIn(b"/dev/null cannot be written: it is no regular file", run.stderr)
        self.assertTrue(Path("/dev/null").is_char_device())

    def test_a_list_that_cannot_be_read_leaves_the_file_as_it_was(self):
        written = self.folder / "list.txt"
        written.write_bytes(b"old")
        run = usbhcdiag("record", "--devices", self.folder / "none", "-o", written)
        self.assertEqual((run.stdout, run.returncode), (b"", 1))
        self.assertIn(b"none: No such file or directory", run.stderr)
        self.assertEqual(written.read_bytes(), b"old")

    def test_a_terminal_is_spared_control_characters(self):
        path = self.folder / "list"
        path.write_bytes(b"T:  Bus=01\nS:  Product=\x1b[31mred\xc2\x9b\x07\n")
        leader, terminal = pty.openpty()
        run = subprocess.run([USBHCDIAG, "record", "-d", str(path)], stdout=terminal, timeout=PATIENCE, check=False)
        os.close(terminal)
        shown = os.read(leader, 4096)
        os.close(leader)
        self.assertEqual(run.returncode, 0)
        self.assertEqual(shown.replace(b"\r\n", b"\n").decode(),
                         "T:  Bus=01\nS:  Product=\ufffd[31mred\ufffd\ufffd\n")


if __name__ == "__main__":
    unittest.main(verbosity=2)
