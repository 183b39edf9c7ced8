#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whom cimhost answers: users of this machine, and pages in their browsers."""
import base64
import contextlib
import http.client
import os
import shutil
import subprocess
import tempfile
import unittest
import urllib.parse

import hosting
from hosting import CIMHOST, MOF, OHCI_TREE, PATIENCE, PROGRAMS

LIBRARY = os.path.join(PROGRAMS, "..", "lib", "libZORVA_UsbHc_DiagProvider.so")
ONE, OTHER = 54321, 54322  # users that nobody has
BODY = ('<?xml version="1.0"?><CIM CIMVERSION="2.0" DTDVERSION="2.0"><MESSAGE ID="1" '
        'PROTOCOLVERSION="1.0"><SIMPLEREQ><IMETHODCALL NAME="EnumerateInstanceNames">'
        '<LOCALNAMESPACEPATH><NAMESPACE NAME="root"/><NAMESPACE NAME="kavex"/>'
        '</LOCALNAMESPACEPATH><IPARAMVALUE NAME="ClassName"><CLASSNAME NAME="ZORVA_UsbHc"/>'
        '</IPARAMVALUE></IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>')
FIELDS = {"Content-Type": "application/xml", "CIMOperation": "MethodCall",
          "CIMMethod": "EnumerateInstanceNames", "CIMObject": "root%2Fkavex"}


def ask(port, **more):
    """Status and detail of the answer to a plain request."""
    fields = {**FIELDS, **{name.replace("_", "-"): more[name] for name in more}}
    with contextlib.closing(
            http.client.HTTPConnection("127.0.0.1", port, timeout=PATIENCE)) as connection:
        connection.request("POST", "/cimom", BODY, fields)
        answer = connection.getresponse()
        return answer.status, urllib.parse.unquote(answer.getheader("PGErrorDetail", ""))


def become(user):
    os.setgroups([])
    os.setresgid(user, user, user)
    os.setresuid(user, user, user)


def ask_as(user, port):
    """The same, asked by a process of that user."""
    reading, writing = os.pipe()
    child = os.fork()
    if child == 0:
        try:
            become(user)
            os.write(writing, ("%d %s" % ask(port)).encode())
        finally:
            os._exit(0)
    os.close(writing)
    with os.fdopen(reading) as pipe:
        status, _, detail = pipe.read().partition(" ")
    os.waitpid(child, 0)
    return int(status or 0), detail


class Host(hosting.CimHost):
    """A cimhost that may be run by another user, who cannot read the build folder."""

    def __init__(self, *arguments, user=None):
        self.files = tempfile.mkdtemp(prefix="cimhost-")
        os.chmod(self.files, 0o755)
        for file in (CIMHOST, LIBRARY, OHCI_TREE):
            shutil.copy(file, self.files)
        shutil.copytree(MOF, os.path.join(self.files, "mof"))
        subprocess.run(["chmod", "-R", "a+rX", self.files], check=True)
        self.errors = open(os.path.join(self.files, "stderr"), "w+")
        self.folder = self.files
        try:
            self.process = subprocess.Popen(
                [self.inside(CIMHOST), "--mof", self.inside("mof/cimhost.mof"),
                 "--provider", self.inside(LIBRARY), "--devices", self.inside(OHCI_TREE), *arguments],
                cwd=self.files, text=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                stderr=self.errors, preexec_fn=(lambda: become(user)) if user else None)
        except PermissionError as error:
            # A machine's root folder may be closed to others, as that of a container in the making.
            self.errors.close()
            shutil.rmtree(self.files)
            raise unittest.SkipTest("another user cannot start a program here: %s" % error)
        line = self.process.stdout.readline()
        if not line.startswith("listening on "):
            self.process.wait(PATIENCE)
            text = self.stderr()
            self.close()
            if "private mount namespace" in text:
                raise unittest.SkipTest(text)
            raise AssertionError("cimhost did not start: " + text)
        self.port = int(line.rsplit(":", 1)[1])

    def inside(self, path):
        """Where the copy of a file is."""
        return os.path.join(self.files, path if path.startswith("mof/") else os.path.basename(path))


@unittest.skipIf(os.geteuid() != 0, "only root can become other users")
class UsersTest(unittest.TestCase):
    def test_a_host_of_root_answers_root_alone(self):
        with Host() as host:
            self.assertEqual(ask(host.port), (200, ""))
            status, detail = ask_as(ONE, host.port)
            self.assertEqual(status, 403)
            self.assertIn("--credentials FILE or --open", detail)
            self.assertIn("a connection of another user was refused", host.stderr())
            self.assertEqual(ask(host.port), (200, ""))

    def test_a_host_of_a_user_answers_that_user_and_root(self):
        # In a user namespace of its own, where the other users have no names.
        with Host(user=ONE) as host:
            self.assertEqual(ask_as(ONE, host.port), (200, ""))
            self.assertEqual(ask(host.port), (200, ""))
            self.assertEqual(ask_as(OTHER, host.port)[0], 403)

    def test_open_lets_everybody_in(self):
        with Host("--open") as host:
            self.assertEqual(ask_as(ONE, host.port), (200, ""))

    def test_with_credentials_the_password_counts_and_not_the_user(self):
        with tempfile.NamedTemporaryFile("w") as file:
            file.write("me:secret\n")
            file.flush()
            with Host("--credentials", file.name) as host:
                self.assertEqual(ask_as(ONE, host.port)[0], 401)
                self.assertEqual(ask(host.port)[0], 401)


class KernelTest(unittest.TestCase):
    def run_without_name(self, *arguments):
        """Starts cimhost in a user namespace in which its user has no name; ends it once it listens."""
        process = subprocess.Popen(["unshare", "--user", CIMHOST, *arguments], text=True,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE)
        line = process.stdout.readline()
        process.terminate()
        errors = process.communicate(timeout=PATIENCE)[1]
        if "unshare" in errors:
            raise unittest.SkipTest(errors)
        return process.returncode, line, errors

    def test_where_users_cannot_be_told_apart_it_says_what_to_do(self):
        status, line, errors = self.run_without_name()
        self.assertEqual((status, line), (1, ""))
        self.assertIn("the kernel does not tell whose connections there are", errors)
        self.assertIn("--credentials FILE", errors)
        self.assertIn("--open", errors)

    def test_open_does_not_ask(self):
        status, line, errors = self.run_without_name("--open")
        self.assertTrue(line.startswith("listening on "), errors)
        self.assertEqual(status, 0)


class BrowserTest(unittest.TestCase):
    def test_a_page_is_refused(self):
        with hosting.CimHost("--devices", OHCI_TREE, "--open") as host:
            for name in ("localhost", "127.0.0.1:%d" % host.port, "[::1]:1"):
                self.assertEqual(ask(host.port, Host=name), (200, ""))
            status, detail = ask(host.port, Host="evil.example")
            self.assertEqual(status, 403)
            self.assertIn("evil.example", detail)
            self.assertEqual(ask(host.port, Origin="http://localhost")[0], 403)
            self.assertEqual(ask(host.port, Sec_Fetch_Site="same-origin")[0], 403)


class PasswordTest(unittest.TestCase):
    def test_wrong_ones_are_counted(self):
        with tempfile.NamedTemporaryFile("w") as file:
            file.write("me:secret\n")
            file.flush()
            with hosting.CimHost("--devices", OHCI_TREE, "--credentials", file.name) as host:
                for guess in ("me:wrong", "\x1b[31m"):
                    token = base64.b64encode(guess.encode()).decode()
                    self.assertEqual(ask(host.port, Authorization="Basic " + token)[0], 401)
                token = base64.b64encode(b"me:secret").decode()
                self.assertEqual(ask(host.port, Authorization="Basic " + token), (200, ""))
                self.assertEqual(host.stderr().splitlines()[-2:],
                                 ["cimhost: a wrong user or password was refused (1 so far)",
                                  "cimhost: a wrong user or password was refused (2 so far)"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
