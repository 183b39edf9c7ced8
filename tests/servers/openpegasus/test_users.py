#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Clients that log in: whoever asks, there is one result table, and the list is readable."""

import pathlib
import unittest

from cimxml import HttpError
from openpegasus_case import *
from pegasus_server import LIBRARY

# The server's own password file takes accounts of the machine; these exist on any.
USERS = (("root", "first-secret"), ("nobody", "second-secret"))


def add_users(server):
    """Has the server know USERS; where it cannot, the tests are skipped."""
    if not (server.home / "bin/cimuser").exists():
        raise unittest.SkipTest("this server has no cimuser, and asks PAM for passwords")
    for name, password in USERS:
        added = server.run("cimuser", "-a", "-u", name, "-w", password, check=False)
        if added.returncode != 0:
            raise unittest.SkipTest(f"this server keeps no password file of its own: {added.stdout}")


class Users:
    configuration = {"enableAuthentication": "true", "httpAuthType": "Basic"}

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        add_users(cls.server)

    def setUp(self):
        super().setUp()
        self.clients = [Client(self.server.url, user) for user in USERS]
        for client in self.clients:
            self.addCleanup(client.close)

    def test_nobody_gets_in_without_a_password(self):
        with self.assertRaises(HttpError) as caught:
            self.client.names(TEST)
        self.assertEqual(caught.exception.status, 401)

    def test_two_users_share_one_result_table(self):
        results = []
        for client, position in zip(self.clients, (0, 1)):
            elements = sorted(client.names(ELEMENT), key=lambda path: path.keys["DeviceID"])
            answer = client.invoke(client.names(TEST)[0], "RunTest",
                                   [("SystemElement", elements[position])])
            self.assertEqual(answer.value, "0")
            results.append(answer.parameters["Result"])
        for client in self.clients:
            self.assertCountEqual(client.names(RESULT), results)
            for result in results:
                self.assertEqual(client.get(result)["TestResults"],
                                 expected_results(sample(self.device_list)))
            self.assertEqual(len(client.associator_names(client.names(TEST)[0], ResultClass=RESULT)),
                             2)
        self.assertEqual(self.processes_with_the_library(), 1)

    @staticmethod
    def processes_with_the_library():
        found = 0
        for entry in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                found += LIBRARY in (entry / "maps").read_text()
            except OSError:
                pass
        return found


in_both_places(globals(), Users)

if __name__ == "__main__":
    main()
