#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""cimhost as a program: how it starts, refuses to start, and ends."""
import http.client
import os
import shutil
import signal
import subprocess
import tempfile
import threading
import time
import unittest

import hosting
from hosting import CIMHOST, OHCI_TREE, PATIENCE, CimHost, wbemcli


def run(*arguments):
    """Runs cimhost until it ends: exit status, standard output, standard error."""
    done = subprocess.run([CIMHOST, *arguments], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, text=True, timeout=PATIENCE, check=False)
    return done.returncode, done.stdout, done.stderr


def intrinsic_call(operation, parameters):
    """A CIM-XML request, as bytes."""
    return ('<?xml version="1.0" encoding="utf-8"?><CIM CIMVERSION="2.0" DTDVERSION="2.0">'
            '<MESSAGE ID="1" PROTOCOLVERSION="1.0"><SIMPLEREQ><IMETHODCALL NAME="%s">'
            '<LOCALNAMESPACEPATH><NAMESPACE NAME="root"/><NAMESPACE NAME="kavex"/>'
            '</LOCALNAMESPACEPATH>%s</IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>'
            % (operation, parameters)).encode()


class FolderTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="cimhost-")
        self.addCleanup(shutil.rmtree, self.folder)

    def write(self, name, text, mode=0o600):
        path = os.path.join(self.folder, name)
        with open(path, "w") as file:
            file.write(text)
        os.chmod(path, mode)
        return path


class StartTest(FolderTest):
    def test_wrong_usage_is_named_and_ends_with_2(self):
        status, output, errors = run("--prot", "1")
        self.assertEqual((status, output), (2, ""))
        self.assertEqual(errors, "cimhost: there is no option --prot\nTry `cimhost --help`.\n")

    def test_help_and_version_go_to_standard_output(self):
        status, output, errors = run("--help")
        self.assertEqual((status, errors), (0, ""))
        self.assertTrue(output.startswith("Usage: cimhost [OPTION]...\n"))
        self.assertRegex(run("--version")[1], r"^cimhost \d+\.\d+\.\d+\n$")

    def test_only_loopback_addresses_are_listened_on(self):
        for address in ("0.0.0.0", "192.0.2.1", "::", "example.org"):
            status, output, errors = run("--address", address)
            self.assertEqual((status, output), (2, ""), address)
            self.assertIn("OpenPegasus", errors)
            self.assertIn('"%s"' % address, errors)
            self.assertTrue(errors.endswith("\nTry `cimhost --help`.\n"), errors)

    def test_a_port_in_use_is_named(self):
        with CimHost() as host:
            status, output, errors = run("--port", str(host.port))
        self.assertEqual((status, output), (1, ""))
        self.assertEqual(errors, "cimhost: cannot listen at 127.0.0.1 port %d: Address already in use\n"
                         % host.port)

    def test_a_provider_library_that_is_none_is_named(self):
        libraries = os.path.join(os.path.dirname(hosting.PROGRAMS), "lib")
        no_factory = os.path.join(libraries, "liblibrary_without_factory.so")
        null = os.path.join(libraries, "liblibrary_returning_null.so")
        for library, complaint in (
                ("/nonexistent/lib.so", "cannot load the provider library: /nonexistent/lib.so: cannot "
                                        "open shared object file: No such file or directory"),
                (OHCI_TREE, "cannot load the provider library: %s: " % OHCI_TREE),
                (no_factory, "%s is no provider library: it has no function PegasusCreateProvider"
                             % no_factory),
                (null, "%s has no provider named ZORVA_UsbHc_DiagProvider" % null)):
            status, output, errors = run("--provider", library)
            self.assertEqual((status, output), (1, ""))
            self.assertIn("cimhost: " + complaint, errors)

    def test_an_error_in_a_mof_file_is_shown_with_its_place(self):
        path = self.write("bad.mof", "// a comment\nclass T_A : T_Nope { };\n")
        self.assertEqual(run("--mof", path),
                         (1, "", "cimhost: %s:2:7: unknown superclass T_Nope\n" % path))
        path = os.path.join(self.folder, "gone.mof")
        self.assertEqual(run("--mof", path),
                         (1, "", "cimhost: %s:1:1: cannot read %s: No such file or directory\n"
                          % (path, path)))

    def test_missing_element_classes_are_named_and_the_host_serves_all_the_same(self):
        path = self.write("own.mof", "class T_A { };\n")
        with CimHost("--mof", path) as host:
            self.assertIn("the MOF files have no class ZORVA_UsbHc; there will be no instances of it",
                          host.stderr())
            self.assertEqual(len(wbemcli("ecn", host, "").lines), 1)

    def test_a_device_list_that_is_not_there_is_named(self):
        path = os.path.join(self.folder, "gone")
        status, output, errors = run("--devices", path)
        self.assertEqual((status, output), (1, ""))
        self.assertIn(path, errors)

    def test_a_moved_build_is_complete(self):
        """The program finds its files from where it lies itself."""
        for name, program in (("bin", "cimhost"), ("lib", "libZORVA_UsbHc_DiagProvider.so")):
            os.mkdir(os.path.join(self.folder, name))
            shutil.copy(os.path.join(os.path.dirname(hosting.PROGRAMS), name, program),
                        os.path.join(self.folder, name))
        shutil.copytree(os.path.join(os.path.dirname(hosting.PROGRAMS), "share"),
                        os.path.join(self.folder, "share"))
        process = subprocess.Popen([os.path.join(self.folder, "bin", "cimhost")], cwd=self.folder,
                                   stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.addCleanup(process.stdout.close)
        self.assertIn("listening on", process.stdout.readline())
        process.terminate()
        self.assertEqual(process.wait(PATIENCE), 0)


class CredentialsTest(FolderTest):
    def test_only_those_with_credentials_get_in(self):
        path = self.write("users", "# a comment\nanna:secret\n")
        with CimHost("--credentials", path) as host:
            for user in (None, "anna:wrong", "bert:secret"):
                answer = wbemcli("ecn", host, "", user=user)
                self.assertNotEqual(answer.status, 0, user)
                self.assertEqual(answer.output.strip(), "")
            self.assertGreater(len(wbemcli("ecn", host, "", user="anna:secret").lines), 30)

    def test_credentials_that_others_can_read_are_refused(self):
        path = self.write("users", "anna:secret\n", mode=0o644)
        status, output, errors = run("--credentials", path)
        self.assertEqual((status, output), (1, ""))
        self.assertIn(path, errors)


def request_instances(connection, class_name):
    body = intrinsic_call("EnumerateInstances", '<IPARAMVALUE NAME="ClassName">'
                          '<CLASSNAME NAME="%s"/></IPARAMVALUE>' % class_name)
    connection.request("POST", "/cimom", body, {
        "Content-Type": "application/xml; charset=utf-8", "CIMOperation": "MethodCall",
        "CIMMethod": "EnumerateInstances", "CIMObject": "root/kavex"})


def enumerate_instances(connection, class_name):
    request_instances(connection, class_name)
    return connection.getresponse().read()


class EndTest(unittest.TestCase):
    def test_the_ready_line_is_all_on_standard_output(self):
        for number in (signal.SIGTERM, signal.SIGINT):
            with CimHost("--devices", OHCI_TREE) as host:
                self.assertEqual(host.ready_line, "listening on %s\n" % host.url)
                wbemcli("ein", host, "CIM_DiagnosticTest")
                self.assertEqual(host.stop(number), (0, ""))

    def test_an_open_connection_does_not_hold_up_the_end(self):
        with CimHost() as host:
            connection = http.client.HTTPConnection("127.0.0.1", host.port, timeout=PATIENCE)
            self.addCleanup(connection.close)
            connection.connect()
            self.assertEqual(host.stop(), (0, ""))


class BlockedListTest(FolderTest):
    """A list whose reading waits, as that of a wedged device does."""

    def setUp(self):
        super().setUp()
        self.list = os.path.join(self.folder, "list")
        os.mkfifo(self.list)
        self.host = CimHost("--devices", self.list)
        self.addCleanup(self.host.__exit__)
        self.test = wbemcli("ein", self.host, "CIM_DiagnosticTest").paths[0]
        self.element = wbemcli("ein", self.host, "ZORVA_UsbHc").paths[0]
        self.answers = []
        self.run = threading.Thread(target=self.run_test)
        self.run.start()
        self.addCleanup(self.run.join)
        # Once the provider opens the pipe to read, opening it to write does not fail any more.
        self.writer = os.open(self.list, os.O_WRONLY)

    def run_test(self):
        self.answers.append(wbemcli("cm", self.host, self.test,
                                    "RunTest.SystemElement=" + self.element))

    def test_other_classes_are_served_meanwhile(self):
        for class_name in ("ZORVA_UsbHc", "QUIRVO_ComputerSystem", "ZORVA_UsbHc_DiagSetting"):
            self.assertEqual(len(wbemcli("ein", self.host, class_name).paths), 1)
        self.assertEqual(self.answers, [])
        with open(OHCI_TREE, "rb") as file:
            os.write(self.writer, file.read())
        os.close(self.writer)
        self.run.join()
        self.assertIn("RunTest: 0", self.answers[0].output)
        result = wbemcli("ei", self.host, "CIM_DiagnosticResult", options=["-nl"])
        self.assertIn("Barometer", result.output)

    def test_the_host_ends_all_the_same(self):
        self.assertEqual(self.host.stop(), (0, ""))
        os.close(self.writer)
        self.run.join()
        self.assertNotIn("RunTest: 0", self.answers[0].output)


class ReadersBesideABlockedListTest(FolderTest):
    def test_each_of_them_is_answered_or_refused_in_time(self):
        blocked = os.path.join(self.folder, "list")
        os.mkfifo(blocked)
        with CimHost("--devices", blocked) as host:
            test = wbemcli("ein", host, "CIM_DiagnosticTest").paths[0]
            element = wbemcli("ein", host, "ZORVA_UsbHc").paths[0]
            # Instances of the test name the computer, for which the provider asks the host: so at
            # any moment some reader is inside such a call.
            refused = threading.Event()
            longest = []

            def read_until_refused():
                connection = http.client.HTTPConnection("127.0.0.1", host.port, timeout=60)
                took, answer = 0, b""
                while b"ERROR CODE" not in answer:
                    begun = time.monotonic()
                    answer = enumerate_instances(connection, "ZORVA_UsbHc_DiagTest")
                    took = max(took, time.monotonic() - begun)
                connection.close()
                longest.append((took, answer))
                refused.set()

            readers = [threading.Thread(target=read_until_refused) for _ in range(12)]
            for reader in readers:
                reader.start()
            run = threading.Thread(target=wbemcli, args=(
                "cm", host, test, "RunTest.SystemElement=" + element))
            run.start()
            writer = os.open(blocked, os.O_WRONLY)
            self.assertTrue(refused.wait(60))
            for reader in readers:
                reader.join()
            for took, answer in longest:
                self.assertLess(took, 30)
                self.assertIn(b"the provider is still at work on an earlier request", answer)
            os.close(writer)
            run.join()
            self.assertEqual(host.stop(), (0, ""))


class HostileClientTest(unittest.TestCase):
    def test_after_a_client_that_goes_away_the_host_goes_on(self):
        with CimHost("--devices", OHCI_TREE) as host:
            for _ in range(20):
                connection = http.client.HTTPConnection("127.0.0.1", host.port, timeout=PATIENCE)
                request_instances(connection, "CIM_ManagedElement")
                connection.close()  # without reading the answer
            self.assertEqual(len(wbemcli("ein", host, "CIM_DiagnosticTest").paths), 1)
            self.assertEqual(host.stop(), (0, ""))


if __name__ == "__main__":
    hosting.main()
