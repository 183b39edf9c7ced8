#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""usbhcdiag over https: cimhost behind stunnel, with an authority that is made here."""
import contextlib
import os
import shutil
import socket
import subprocess
import sys
import tempfile
import threading
import unittest

import programs
from hosting import CimHost, OHCI_TREE
from namespaces import PATIENCE, in_namespaces
from programs import USBHCDIAG

STUNNEL = shutil.which("stunnel4") or shutil.which("stunnel")
TESTS_PRINTED = "GetUsbDeviceInformation"


class Authority:
    """Certificates in a folder, NAME.pem with NAME.key, signed by an authority of that folder."""

    def __init__(self, folder, name):
        self.folder = folder
        self.name = name
        self.openssl("req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-days",
                     "2", "-subj", f"/CN={name}", "-keyout", self.file(f"{name}.key"), "-out", self.certificate)

    @property
    def certificate(self):
        return self.file(f"{self.name}.pem")

    def file(self, name):
        return os.path.join(self.folder, name)

    def openssl(self, *words):
        subprocess.run(["openssl", *words], check=True, cwd=self.folder, timeout=PATIENCE, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def sign(self, name, names="DNS:localhost,IP:127.0.0.1,IP:::1", days=2):
        """NAME.pem and NAME.key, for these names and for so many days from now on."""
        with open(self.file("names"), "w") as file:
            file.write(f"subjectAltName={names}\n")
        # RSA, which TLS 1.0 knows.
        self.openssl("req", "-newkey", "rsa:2048", "-nodes", "-subj", f"/CN={name}", "-keyout",
                     self.file(f"{name}.key"), "-out", self.file("request"))
        self.openssl("x509", "-req", "-in", self.file("request"), "-CA", self.certificate, "-CAkey",
                     self.file(f"{self.name}.key"), "-CAcreateserial", "-days", str(days), "-extfile",
                     self.file("names"), "-out", self.file(f"{name}.pem"))
        return name


class Front:
    """An https server before `port`: each connection gets a stunnel of its own. To be used in a with statement."""

    def __init__(self, authority, name, port, *settings, address="127.0.0.1"):
        self.configuration = authority.file(f"{name}.conf")
        with open(self.configuration, "w") as file:
            file.write("\n".join(["foreground = yes", "pid =", "syslog = no", "debug = err",
                                  f"cert = {authority.file(name)}.pem", f"key = {authority.file(name)}.key",
                                  f"connect = 127.0.0.1:{port}", *settings, ""]))
        family = socket.AF_INET6 if ":" in address else socket.AF_INET
        self.socket = socket.create_server((address, 0), family=family)
        self.port = self.socket.getsockname()[1]
        self.url = f"https://localhost:{self.port}"
        self.connections = 0
        self.processes = []
        self.thread = threading.Thread(target=self.serve)
        self.thread.start()

    def serve(self):
        while True:
            try:
                connection, _ = self.socket.accept()
            except OSError:
                return
            self.connections += 1
            with connection:
                self.processes.append(subprocess.Popen([STUNNEL, self.configuration], stdin=connection,
                                                       stdout=connection, stderr=subprocess.DEVNULL))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.socket.shutdown(socket.SHUT_RDWR)
        self.thread.join()
        self.socket.close()
        for process in self.processes:
            process.terminate()
            process.wait(PATIENCE)


def usbhcdiag(*words, **environment):
    return programs.usbhcdiag(*words, text=True, env={**os.environ, **environment})


class Https(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp(prefix="authority-")
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.authority = Authority(cls.folder, "authority")
        cls.good = cls.authority.sign("good")
        cls.host = CimHost("--devices", OHCI_TREE)
        cls.addClassCleanup(cls.host.__exit__)

    def front(self, name, *settings, **more):
        front = Front(self.authority, name, self.host.port, *settings, **more)
        self.addCleanup(front.__exit__)
        return front

    def trusting(self, url, *words, **environment):
        return usbhcdiag("tests", "--server", url, "--cacert", self.authority.certificate, *words, **environment)

    def prints_tests(self, result, said=""):
        self.assertEqual((result.returncode, result.stderr), (0, said))
        self.assertIn(TESTS_PRINTED, result.stdout)

    def fails(self, result, text):
        """`text` is a regular expression of all of standard error, after the program's name and the URL."""
        self.assertEqual((result.returncode, result.stdout), (1, ""), result.stderr)
        self.assertRegex(result.stderr, r"\Ausbhcdiag: https://\S+:\d+: " + text + r"\n\Z")

    def test_asks_a_server_that_it_trusts(self):
        front = self.front(self.good)
        self.prints_tests(self.trusting(front.url))
        self.prints_tests(self.trusting(front.url.replace("localhost", "127.0.0.1")))

    def test_asks_over_ipv6(self):
        try:
            front = self.front(self.good, address="::1")
        except OSError as error:
            self.skipTest(str(error))
        self.prints_tests(self.trusting(f"https://[::1]:{front.port}"))

    def test_a_command_needs_one_connection(self):
        front = self.front(self.good)
        result = usbhcdiag("run", "--server", front.url, "--cacert", self.authority.certificate)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(front.connections, 1)

    def test_refuses_an_authority_that_it_does_not_know(self):
        front = self.front(self.good)
        unknown = (r"the server's certificate is not accepted \(SSL certificate problem: .*(local issuer|self-signed).*\)"
                   "\nThe certificate of an authority that you trust goes into a file for --cacert.")
        self.fails(usbhcdiag("tests", "--server", front.url), unknown)
        other = Authority(self.folder, "other")
        self.fails(usbhcdiag("tests", "--server", front.url, "--cacert", other.certificate), unknown)

    def test_trusts_the_system_unless_it_is_told_whom_to_trust(self):
        system = "/etc/ssl/certs"
        if not os.path.exists(os.path.join(system, "ca-certificates.crt")):
            self.skipTest(f"this system keeps its authorities elsewhere than in {system}")
        if in_namespaces(True, "true").returncode != 0:
            self.skipTest("no user namespaces here")
        store = self.authority.file("store")
        os.mkdir(store)
        for name in ("ca-certificates.crt", "authority.pem"):
            shutil.copy(self.authority.certificate, os.path.join(store, name))
        self.authority.openssl("rehash", store)
        url = self.front(self.good).url

        def where_the_system_trusts_it(*words):
            return in_namespaces(True, f'mount --bind "$1" {system}; shift; exec "$@"', store, USBHCDIAG, "tests",
                                 "--server", url, *words)
        self.prints_tests(where_the_system_trusts_it())
        other = Authority(self.folder, "stranger")
        self.fails(where_the_system_trusts_it("--cacert", other.certificate),
                   "the server's certificate is not accepted (?s:.*)")

    def test_refuses_an_expired_certificate(self):
        front = self.front(self.authority.sign("expired", days=-1))
        self.fails(self.trusting(front.url), r"the server's certificate is not accepted "
                                             r"\(SSL certificate problem: certificate has expired\)")

    def test_refuses_the_certificate_of_another_host(self):
        front = self.front(self.authority.sign("elsewhere", names="DNS:other.example,DNS:third.example"))
        self.fails(self.trusting(front.url),
                   r"the server's certificate is not accepted \(SSL: no alternative certificate subject name matches "
                   r"target host name 'localhost'\): it is for DNS:other\.example, DNS:third\.example")

    def test_insecure_says_what_it_gives_up(self):
        said = ("usbhcdiag: --insecure: nobody checks that localhost is who answers; whoever stands between can read "
                "and change everything, the password included\n")
        for name in (self.good, self.authority.sign("late", days=-1),
                     self.authority.sign("foreign", names="DNS:other.example")):
            self.prints_tests(usbhcdiag("tests", "--server", self.front(name).url, "--insecure"), said)

    def test_shows_a_certificate_where_one_is_demanded(self):
        client = self.authority.sign("client", names="DNS:client.example")
        certificate, key = self.authority.file(f"{client}.pem"), self.authority.file(f"{client}.key")
        front = self.front(self.good, "verifyChain = yes", f"CAfile = {self.authority.certificate}")
        self.prints_tests(self.trusting(front.url, "--cert", certificate, "--key", key))
        both = self.authority.file("both.pem")
        with open(both, "w") as whole:
            for part in (certificate, key):
                with open(part) as file:
                    whole.write(file.read())
        self.prints_tests(self.trusting(front.url, "--cert", both))
        self.fails(self.trusting(front.url), r"the connection broke \(.*\); the server may demand a certificate of this client"
                                             "\nIt goes into a file for --cert, its key into one for --key.")

    def test_says_that_a_file_cannot_be_used(self):
        front = self.front(self.good)
        certificate = self.authority.file("good.pem")
        useless = r"the certificate or the key of this client cannot be used \(.*\)"
        self.fails(self.trusting(front.url, "--cert", "/nowhere/client.pem"), useless)
        self.fails(self.trusting(front.url, "--cert", certificate, "--key", self.authority.file("authority.key")),
                   useless)
        self.fails(usbhcdiag("tests", "--server", front.url, "--cacert", "/nowhere/authority.pem"),
                   r"the certificates of authorities cannot be read \(.*/nowhere/authority\.pem.*\)")

    def test_speaks_no_tls_before_1_2(self):
        # The system would refuse it as well, unless it is told not to.
        lax = self.authority.file("openssl.cnf")
        with open(lax, "w") as file:
            file.write("openssl_conf = a\n[a]\nssl_conf = b\n[b]\nsystem_default = c\n"
                       "[c]\nMinProtocol = TLSv1\nCipherString = ALL:@SECLEVEL=0\n")
        for version, is_spoken in (("TLSv1", False), ("TLSv1.1", False), ("TLSv1.2", True)):
            front = self.front(self.good, f"sslVersion = {version}", "ciphers = ALL:@SECLEVEL=0")
            result = self.trusting(front.url, OPENSSL_CONF=lax)
            if is_spoken:
                self.prints_tests(result)
            else:
                self.fails(result, r"no encrypted connection can be made \(.*(version|protocol).*\)")

    def test_says_that_there_is_no_encryption(self):
        self.fails(self.trusting(f"https://localhost:{self.host.port}"),
                   r"no encrypted connection can be made \(.*wrong version number.*\)")

    def test_says_that_there_is_encryption(self):
        front = self.front(self.good)
        result = usbhcdiag("tests", "--server", front.url.replace("https", "http"))
        self.assertEqual(result.returncode, 1)
        self.assertRegex(result.stderr, "the server closed the connection without a complete answer|the connection broke")

    def test_a_password_is_not_in_clear(self):
        credentials = self.authority.file("credentials")
        with open(credentials, "w", opener=lambda path, flags: os.open(path, flags, 0o600)) as file:
            file.write("anna:secret\n")
        with CimHost("--devices", OHCI_TREE, "--credentials", credentials) as host, \
                Front(self.authority, self.good, host.port) as front:
            self.prints_tests(self.trusting(front.url, "--credentials", credentials))
            home = os.path.join(self.folder, "home")
            os.mkdir(home)
            self.fails(self.trusting(front.url, HOME=home),
                       "the server answers 401 Unauthorized: it wants other credentials.*"
                       "\nUser and password go into a file for --credentials.")
            with open(os.path.join(home, ".netrc"), "w") as file:
                file.write("machine localhost login anna password secret\n")
            self.prints_tests(self.trusting(front.url, HOME=home))

    def test_knows_no_proxy_but_its_own(self):
        front = self.front(self.good)
        self.prints_tests(self.trusting(front.url, HTTPS_PROXY="http://127.0.0.1:1", ALL_PROXY="http://127.0.0.1:1"))
        with socket.create_server(("127.0.0.1", 0)) as proxy:
            command = subprocess.Popen([USBHCDIAG, "tests", "--server", front.url, "--proxy",
                                        f"http://127.0.0.1:{proxy.getsockname()[1]}"], text=True,
                                       stdout=subprocess.PIPE, stderr=subprocess.PIPE, env={**os.environ, "no_proxy": "*"})
            with contextlib.closing(proxy.accept()[0]) as connection:
                asked = connection.recv(65536).decode()
                connection.sendall(b"HTTP/1.1 403 Forbidden\r\nContent-Length: 0\r\n\r\n")
            output, errors = command.communicate(timeout=PATIENCE)
        self.assertTrue(asked.startswith(f"CONNECT localhost:{front.port} HTTP/1.1\r\n"), asked)
        self.assertEqual((command.returncode, output), (1, ""))
        self.assertRegex(errors, "403")


def main():
    missing = [name for name, found in (("openssl", shutil.which("openssl")), ("stunnel4", STUNNEL)) if not found]
    if missing:
        print("skipped: this machine lacks", ", ".join(missing))
        sys.exit(77)
    unittest.main(verbosity=2)


if __name__ == "__main__":
    main()
