#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""usbhcdiag and the server of --server, over http: named_server_test.py PROGRAMS SOURCES [unittest options]"""
import contextlib
import os
import socket
import subprocess
import sys
import tempfile
import threading
import time
import unittest

import programs
from hosting import CimHost, OHCI_TREE
from namespaces import PATIENCE, in_namespaces
from programs import PROGRAMS, SOURCES

REFUSAL = b"HTTP/1.1 401 Unauthorized\r\nContent-Length: 0\r\n\r\n"
HOSTS = "127.0.0.1 inside.example\n192.0.2.1 outside.example\n"


def usbhcdiag(*words, **environment):
    return programs.usbhcdiag(*words, text=True, env={**os.environ, **environment})


@contextlib.contextmanager
def server_that(answer, address="127.0.0.1"):
    """The port of a server that has `answer` called with each connection and what it was asked."""
    def serve():
        while True:
            try:
                connection, _ = listening.accept()
            except OSError:
                return
            with connection:
                answer(connection, connection.recv(65536))

    with socket.create_server((address, 0)) as listening:
        thread = threading.Thread(target=serve)
        thread.start()
        try:
            yield listening.getsockname()[1]
        finally:
            listening.shutdown(socket.SHUT_RDWR)
            thread.join()


def saying(answer):
    return lambda connection, _: connection.sendall(answer)


class NamedServer(unittest.TestCase):
    def refused_by(self, answer):
        """What is said after the URL of a server that answers so."""
        with server_that(saying(answer)) as port:
            result = usbhcdiag("tests", "--server", f"http://127.0.0.1:{port}")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        begin = f"usbhcdiag: http://127.0.0.1:{port}: "
        self.assertTrue(result.stderr.startswith(begin), result.stderr)
        return result.stderr[len(begin):]

    def test_says_that_it_is_no_cim_server(self):
        page = b"Content-Type: text/html\r\nContent-Length: 6\r\n\r\n<html>"
        self.assertEqual(self.refused_by(b"HTTP/1.1 404 Not Found\r\n" + page),
                         "the server answers 404 Not Found: this is no CIM server\n")
        self.assertEqual(self.refused_by(b"HTTP/1.1 405 Method Not Allowed\r\n" + page),
                         "the server answers 405 Method Not Allowed: this is no CIM server\n")
        self.assertTrue(self.refused_by(b"HTTP/1.1 200 OK\r\n" + page).startswith("the answer is not CIM-XML: "))
        self.assertTrue(self.refused_by(b"220 mail.example ESMTP\r\n").startswith("the answer is not HTTP ("))

    def test_follows_no_redirect(self):
        visitors = []
        with server_that(lambda _, asked: visitors.append(asked)) as port:
            there = f"http://127.0.0.1:{port}/cimom"
            said = self.refused_by(b"HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + there.encode() + b"\r\n\r\n")
        self.assertEqual(said, f"the server answers 302 Found: it redirects to {there}, which is not followed\n")
        self.assertEqual(visitors, [])

    def test_waits_as_long_as_it_is_told(self):
        ended = threading.Event()
        with server_that(lambda *_: ended.wait(PATIENCE)) as port:
            start = time.monotonic()
            result = usbhcdiag("tests", "--server", f"http://127.0.0.1:{port}", "--timeout", "1")
            gone = time.monotonic() - start
            ended.set()
        self.assertEqual((result.returncode, result.stderr),
                         (1, f"usbhcdiag: http://127.0.0.1:{port}: the server did not answer in time\n"))
        self.assertGreaterEqual(gone, 1)

    def test_knows_no_proxy_of_the_environment(self):
        with CimHost("--devices", OHCI_TREE) as host:
            result = usbhcdiag("tests", "--server", host.url, http_proxy="http://127.0.0.1:1",
                               ALL_PROXY="http://127.0.0.1:1")
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_options_for_https_need_it(self):
        for words in (("--insecure",), ("--cacert", "f"), ("--cert", "f")):
            result = usbhcdiag("tests", "--server", "http://localhost:1", *words)
            self.assertEqual((result.returncode, result.stderr.splitlines()[0]),
                             (2, "usbhcdiag: --cacert, --cert and --insecure are for https, and the URL of --server "
                                 "begins with http://"))

    def test_a_password_in_clear_is_told_by_the_connection(self):
        in_network = 'mount --bind "$1" /etc/hosts; ip link set lo up; ip address add 192.0.2.1/32 dev lo; shift; exec "$@"'
        if in_namespaces(True, "exec unshare --net ip link set lo up").returncode != 0:
            self.skipTest("no network namespaces here")
        with open(os.path.join(self.folder(), "hosts"), "w") as hosts:
            hosts.write(HOSTS)
        result = in_namespaces(True, f'exec unshare --net sh -ec \'{in_network}\' sh "$@"', hosts.name, sys.executable,
                               __file__, PROGRAMS, SOURCES, "in-network")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        said = dict(line.split(" ", 1) for line in result.stdout.splitlines())

        def warning(host):
            return (f"usbhcdiag: the password goes to {host} (192.0.2.1) unencrypted; with https:// it does not, nor "
                    "through a tunnel: ssh -L 15988:localhost:15988 " + host)
        self.assertEqual(said["inside.example"], "")
        self.assertEqual(said["127.0.0.1"], "")
        self.assertEqual(said["outside.example"], warning("outside.example"))
        self.assertEqual(said["192.0.2.1"], warning("192.0.2.1"))
        self.assertEqual(said["without-password"], "")

    def folder(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        return folder.name


def print_warnings():
    """In a network of its own: what is said first, a line for each host, where the server wants a password."""
    with socket.create_server(("0.0.0.0", 15988)) as listening:
        def serve():
            while True:
                connection, _ = listening.accept()
                with connection:
                    connection.recv(65536)
                    connection.sendall(REFUSAL)
        threading.Thread(target=serve, daemon=True).start()

        def warning(*words):
            return "".join(line for line in usbhcdiag("tests", *words).stderr.splitlines() if "unencrypted" in line)
        for host in ("inside.example", "127.0.0.1", "outside.example", "192.0.2.1"):
            print(host, warning("--server", f"http://anna:secret@{host}:15988"))
        print("without-password", warning("--server", "http://outside.example:15988"))


if __name__ == "__main__":
    if sys.argv[1:] == ["in-network"]:
        print_warnings()
    else:
        unittest.main(verbosity=2)
