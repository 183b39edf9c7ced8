# SPDX-License-Identifier: MIT
"""Runs cimhost and wbemcli for the end-to-end tests: TEST.py PROGRAMS SOURCES [unittest options]"""
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

from namespaces import PATIENCE
from programs import PROGRAMS, SOURCES

NAMESPACE = "root/kavex"
CIMHOST = os.path.join(PROGRAMS, "cimhost")
MOF = os.path.join(SOURCES, "mof")
OHCI_TREE = os.path.join(SOURCES, "samples", "ohci-tree.txt")


class CimHost:
    """A running cimhost with a working folder of its own; to be used in a with statement."""

    def __init__(self, *arguments):
        self.folder = tempfile.mkdtemp(prefix="cimhost-")
        self.errors = open(os.path.join(self.folder, "stderr"), "w+")
        self.process = subprocess.Popen([CIMHOST, *arguments], cwd=self.folder, text=True,
                                        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                        stderr=self.errors)
        self.ready_line = self.process.stdout.readline()
        match = re.fullmatch(r"listening on (http://127\.0\.0\.1:(\d+))\n", self.ready_line)
        if match is None:
            self.process.wait(PATIENCE)
            text = self.stderr()
            self.close()
            if "cannot" in text and "mount" in text.lower():
                raise unittest.SkipTest(text)
            raise AssertionError("cimhost did not start: %r %s" % (self.ready_line, text))
        self.url, self.port = match.group(1), int(match.group(2))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.close()

    def close(self):
        self.process.stdout.close()
        self.errors.close()
        shutil.rmtree(self.folder)

    def stop(self, number=signal.SIGTERM):
        """Ends the host; its exit status and what else it wrote to standard output."""
        self.process.send_signal(number)
        output = self.process.stdout.read()
        return self.process.wait(PATIENCE), output

    def stderr(self):
        with open(os.path.join(self.folder, "stderr"), errors="replace") as file:
            return file.read()


class Answer:
    """What wbemcli said."""

    def __init__(self, completed):
        self.status = completed.returncode
        self.output = completed.stdout
        # Between the lines of asterisks: "* wbemcli: Cim: (6) CIM_ERR_NOT_FOUND: ..."
        self.error = "".join(line[len("* wbemcli: "):] for line in completed.stderr.splitlines()
                             if line.startswith("* wbemcli: "))

    @property
    def lines(self):
        return [line for line in self.output.splitlines() if line]

    @property
    def paths(self):
        """The paths listed, without host, port and namespace."""
        return [line.split(NAMESPACE + ":", 1)[1] for line in self.lines
                if not line.startswith("-")]

    @property
    def properties(self):
        """NAME: TEXT of the properties that "-nl" prints a line each, quotes removed."""
        found = {}
        for line in self.lines:
            match = re.match(r"-(\w+)=(.*)", line)
            if match:
                found[match.group(1)] = match.group(2).strip('"')
        return found


def wbemcli(operation, host, path, *arguments, options=(), user=None):
    """Runs wbemcli on a path of the namespace, "" for the namespace itself."""
    authority = "%s127.0.0.1:%d" % (user + "@" if user else "", host.port)
    url = "http://%s/%s%s" % (authority, NAMESPACE, ":" + path if path else "")
    command = ["wbemcli", operation, *options, url, *arguments]
    return Answer(subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                                 errors="replace", timeout=PATIENCE, check=False))


def main():
    """Runs the tests of the calling module; 77, which means skipped, where wbemcli is not installed."""
    if shutil.which("wbemcli") is None:
        print("skipped: wbemcli is not installed (Debian package sblim-wbemcli)")
        sys.exit(77)
    unittest.main(verbosity=2)
