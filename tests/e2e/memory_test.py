# SPDX-License-Identifier: MIT
"""The memory of cimhost stays, whatever clients send: memory_test.py PROGRAMS SOURCES"""
import socket
import time
import unittest

import hosting

LARGEST_BODY = 1024 * 1024
CONNECTIONS = 60
MOST_KIB = 12 * 1024


def status_of(host, name):
    with open("/proc/%d/status" % host.process.pid) as status:
        return next(int(line.split()[1]) for line in status if line.startswith(name + ":"))


def resident_kib(host):
    return status_of(host, "VmRSS")


def wait_until(condition):
    until = time.monotonic() + hosting.PATIENCE
    while not condition() and time.monotonic() < until:
        time.sleep(0.05)


def largest_document():
    """As many elements as a body may hold and the host takes, and then no request."""
    begin, element, end = b'<?xml version="1.0"?><a>', b'<b c="d"/>', b"</a>"
    document = begin + 49_999 * element
    return document + b" " * (LARGEST_BODY - len(document) - len(end)) + end


class MemoryTest(unittest.TestCase):
    def burst(self, host, body):
        """Every connection holds its request back until all the others are as far."""
        header = ("POST /cimom HTTP/1.1\r\nHost: localhost\r\nContent-Type: application/xml\r\n"
                  "CIMOperation: MethodCall\r\nCIMMethod: GetInstance\r\nCIMObject: root%%2Fkavex\r\n"
                  "Content-Length: %d\r\n\r\n" % len(body)).encode()
        clients = [socket.create_connection(("127.0.0.1", host.port), hosting.PATIENCE)
                   for _ in range(CONNECTIONS)]
        for client in clients:
            client.sendall(header + body[:-1])
        for client in clients:
            client.sendall(body[-1:])
        for client in clients:
            self.assertEqual(client.recv(65536)[:12], b"HTTP/1.1 400")
            client.close()

    def test_what_a_burst_of_large_requests_took_is_given_back(self):
        body = largest_document()
        with hosting.CimHost("--devices", hosting.OHCI_TREE) as host:
            self.assertLess(resident_kib(host), MOST_KIB, "at rest")
            threads = status_of(host, "Threads")
            for _ in range(3):
                self.burst(host, body)
                # The threads of the host end a moment after their clients are gone.
                wait_until(lambda: status_of(host, "Threads") <= threads)
            self.assertLess(resident_kib(host), MOST_KIB)


if __name__ == "__main__":
    unittest.main()
