# SPDX-License-Identifier: MIT
"""What the test cases share: a server with the diagnostics registered, and ways to ask it."""

import subprocess
import sys
import unittest

from cimxml import Client, Path
from pegasus_server import (DEVICE_LIST, Server, build_dir, require_openpegasus, skip, source_dir,
                            wait_for)

TEST = "ZORVA_UsbHc_DiagTest"
RESULT = "ZORVA_UsbHc_DiagResult"
RESULT_FOR_MSE = "ZORVA_UsbHc_DiagResultForMSE"
RESULT_FOR_TEST = "ZORVA_UsbHc_DiagResultForTest"
TEST_FOR_MSE = "ZORVA_UsbHc_DiagTestForMSE"
TEST_SOFTWARE = "ZORVA_UsbHc_DiagTestSoftwareAssoc"
ASSOCIATIONS = (RESULT_FOR_MSE, RESULT_FOR_TEST, TEST_FOR_MSE, TEST_SOFTWARE)
SERVED = (TEST, RESULT) + ASSOCIATIONS
ELEMENT = "ZORVA_UsbHc"
SOFTWARE = "ZORVA_UsbHc_TestSoftware"
SYSTEM = "QUIRVO_ComputerSystem"
SETTING = "ZORVA_UsbHc_DiagSetting"

INSTALLATION = require_openpegasus()


def sample(name):
    return source_dir() / "samples" / name


def expected_results(device_list):
    """The report that a list must give, from a script that shares nothing with the library."""
    done = subprocess.run([sys.executable, source_dir() / "tests/expected_report.py", "results",
                           device_list], stdout=subprocess.PIPE, check=True)
    return done.stdout.decode("utf-8").split("\n")[:-1]


def show_devices(content):
    """Makes a list (a file's content, or the file) the one that the provider reads."""
    DEVICE_LIST.write_bytes(content if isinstance(content, bytes) else content.read_bytes())


class OpenPegasusCase(unittest.TestCase):
    """One server for the tests of a class, registered, showing `device_list`."""

    out_of_process = False
    configuration = {}  # of the server
    environment = {}
    device_list = "uhci-ehci-desktop.txt"

    @classmethod
    def setUpClass(cls):
        show_devices(sample(cls.device_list))
        cls.server = Server(INSTALLATION)
        cls.addClassCleanup(cls.server.close)
        cls.server.environment.update(cls.environment)
        cls.server.start(cls.out_of_process, **cls.configuration)
        cls.server.register("--devices", sample(cls.device_list))

    def setUp(self):
        self.client = Client(self.server.url)
        self.addCleanup(self.client.close)

    def the_test(self):
        return self.client.names(TEST)[0]

    def elements(self):
        return sorted(self.client.names(ELEMENT), key=lambda path: path.keys["DeviceID"])

    def run_test(self, element, *parameters):
        return self.client.invoke(self.the_test(), "RunTest",
                                  [("SystemElement", element), *parameters])

    def clear_all(self):
        test = self.the_test()
        for element in self.elements():
            self.client.invoke(test, "ClearResults", [("SystemElement", element)])


def in_both_places(module, cases, prefix=""):
    """Defines two test classes in a module: the cases with the library in the server's own process,
    and in an agent process."""
    for place, out_of_process in (("InProcess", False), ("OutOfProcess", True)):
        name = prefix + place
        module[name] = type(name, (cases, OpenPegasusCase),
                            {"out_of_process": out_of_process, "__module__": cases.__module__})


def main():
    server = Server(INSTALLATION)
    print(f"OpenPegasus {server.version()} from {INSTALLATION}", flush=True)
    server.close()
    result = unittest.main(verbosity=2, exit=False).result
    reasons = {reason for _, reason in result.skipped}
    # A test that was skipped by itself counts as run, one whose class was skipped does not.
    skipped_tests = sum(isinstance(test, unittest.TestCase) for test, _ in result.skipped)
    if result.wasSuccessful() and reasons and result.testsRun == skipped_tests:
        skip("; ".join(sorted(reasons)))
    sys.exit(not result.wasSuccessful())


__all__ = [name for name in globals() if not name.startswith("_")]
