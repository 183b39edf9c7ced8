#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What cimhost may do while it serves, seen from outside: privileges_test.py PROGRAMS SOURCES [unittest options]"""
import os
import re
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from hosting import CIMHOST, OHCI_TREE, PATIENCE, CimHost
from programs import USBHCDIAG

NOTHING_LEFT = {"CapInh": "0000000000000000", "CapPrm": "0000000000000000", "CapEff": "0000000000000000",
                "CapAmb": "0000000000000000", "NoNewPrivs": "1", "Seccomp": "2"}
SOMEBODY = 54321


def rights_of_threads(process):
    """What the kernel says of each thread."""
    threads = []
    for status in Path("/proc/%d/task" % process).glob("*/status"):
        fields = dict(re.findall(r"(\w+):\t(.*)", status.read_text()))
        threads.append({name: fields[name] for name in NOTHING_LEFT})
    return threads


def private_server_of(process):
    """The cimhost that a process has started, once it is one."""
    limit = time.monotonic() + PATIENCE
    while time.monotonic() < limit:
        for child in Path("/proc/%d/task/%d/children" % (process, process)).read_text().split():
            if os.path.realpath("/proc/%s/exe" % child) == CIMHOST:
                return int(child)
        time.sleep(0.01)
    raise AssertionError("no private server")


class RightsTest(unittest.TestCase):
    def assert_nothing_left(self, process):
        threads = rights_of_threads(process)
        self.assertGreaterEqual(len(threads), 2)
        for rights in threads:
            self.assertEqual(rights, NOTHING_LEFT)

    def test_a_server_keeps_none(self):
        with CimHost() as host:
            self.assert_nothing_left(host.process.pid)
            self.assertEqual(host.stderr(), "")

    def test_a_server_that_shows_a_list_keeps_none(self):
        with CimHost("--devices", OHCI_TREE) as host:
            self.assert_nothing_left(host.process.pid)

    @unittest.skipIf(os.geteuid() != 0, "only root can become somebody else")
    def test_an_ordinary_users_server_keeps_none_of_its_user_namespace(self):
        with tempfile.TemporaryDirectory() as folder:
            os.chmod(folder, 0o755)
            tree = os.path.join(folder, "list")
            Path(tree).write_bytes(Path(OHCI_TREE).read_bytes())
            ends = os.pipe()
            try:
                process = subprocess.Popen([CIMHOST, "--devices", tree], cwd="/", stdin=subprocess.DEVNULL,
                                           stdout=ends[1], stderr=subprocess.PIPE, user=SOMEBODY,
                                           group=SOMEBODY, extra_groups=[])
            except PermissionError as error:
                os.close(ends[0])
                self.skipTest("another user cannot start a program here: %s" % error)
            finally:
                os.close(ends[1])
            try:
                with os.fdopen(ends[0]) as output:
                    line = output.readline()
                if not line:
                    self.skipTest("skipped: " + process.stderr.read().decode())
                self.assert_nothing_left(process.pid)
            finally:
                process.kill()
                process.wait()
                process.stderr.close()

    def test_the_private_server_of_a_run_keeps_none_while_it_reads_the_list(self):
        with tempfile.TemporaryDirectory() as folder:
            fifo = os.path.join(folder, "list")
            os.mkfifo(fifo)
            process = subprocess.Popen([USBHCDIAG, "run", "--devices", fifo], stdin=subprocess.DEVNULL,
                                       stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            try:
                # Opened once the test reads it.
                with open(fifo, "wb") as writer:
                    self.assert_nothing_left(private_server_of(process.pid))
                    writer.write(Path(OHCI_TREE).read_bytes())
                output, errors = process.communicate(timeout=PATIENCE)
                self.assertEqual(process.returncode, 0, errors)
                self.assertIn(b"Desk Hub", output)
            finally:
                process.kill()
                process.communicate()

    @unittest.skipIf(os.geteuid() != 0, "only root can make a list of somebody else's")
    def test_a_list_that_takes_privileges_to_read_is_refused(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "list")
            Path(path).write_bytes(Path(OHCI_TREE).read_bytes())
            os.chmod(path, 0o600)
            os.chown(path, SOMEBODY, SOMEBODY)
            done = subprocess.run([CIMHOST, "--devices", path], stdin=subprocess.DEVNULL,
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                                  timeout=PATIENCE, check=False)
            self.assertEqual((done.returncode, done.stdout), (1, ""))
            self.assertEqual(done.stderr, "cimhost: cannot read %s without privileges, which this server "
                             "gives up: let user 0 read it\n" % path)


if __name__ == "__main__":
    unittest.main(verbosity=2)
