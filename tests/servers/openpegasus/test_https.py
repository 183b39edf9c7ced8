#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""usbhcdiag and the server's https port, with users, and with a certificate that it signed for itself."""

import json
import pathlib
import subprocess
import tempfile
import unittest

from openpegasus_case import *
from pegasus_server import free_port
from test_users import USERS, add_users


class Https:
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.certificate = cls.folder / "server.pem"
        subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=localhost",
                        "-addext", "subjectAltName=DNS:localhost", "-keyout", cls.folder / "key.pem", "-out",
                        cls.certificate], check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
        port = free_port()
        cls.url = f"https://localhost:{port}"
        cls.configuration = {"enableAuthentication": "true", "httpAuthType": "Basic", "enableHttpsConnection": "true",
                             "httpsPort": port, "sslCertificateFilePath": cls.certificate,
                             "sslKeyFilePath": cls.folder / "key.pem"}
        super().setUpClass()
        add_users(cls.server)

    def usbhcdiag(self, *words, user=USERS[1], trusted=None):
        credentials = self.folder / "credentials"
        credentials.write_text(":".join(user) + "\n")
        credentials.chmod(0o600)
        return self.server.run("usbhcdiag", *words, "--server", self.url, "--credentials", credentials,
                               *(trusted or ("--cacert", self.certificate)), check=False)

    def prints(self, *words, **how):
        done = self.usbhcdiag(*words, **how)
        self.assertEqual(done.returncode, 0, done.stdout)
        return done.stdout

    def fails(self, text, *words, **how):
        done = self.usbhcdiag(*words, **how)
        self.assertEqual(done.returncode, 1, done.stdout)
        self.assertIn(text, done.stdout)

    def test_runs_lists_and_clears(self):
        elements = [element["DeviceID"] for element in json.loads(self.prints("elements", "--json"))]
        self.assertGreater(len(elements), 1)
        for element, user in zip(elements, USERS):
            self.assertEqual(self.prints("run", "--element", element, user=user).split("\n")[:-1],
                             expected_results(sample(self.device_list)))
        results = json.loads(self.prints("results", "--json"))
        self.assertEqual([result["ExecutionID"] for result in results], elements[:2])
        self.assertEqual(self.prints("clear"), "removed: 2\n")

    def test_says_what_is_refused(self):
        self.fails("the server answers 401 Unauthorized", "tests", user=("nobody", "guess"))
        self.fails("the server's certificate is not accepted (SSL certificate problem: self-signed certificate)",
                   "tests", trusted=("--timeout", "60"))


in_both_places(globals(), Https)

if __name__ == "__main__":
    main()
