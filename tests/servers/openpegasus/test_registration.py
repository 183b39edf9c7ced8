#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The registration command: what it brings, that it takes everything away again, and that it says
what is wrong."""

import os
import shutil
import subprocess
import tempfile
import unittest

from openpegasus_case import *
from pegasus_server import LIBRARY

COMMAND = "usbhcdiag-openpegasus"
MODULE = "ZORVA_UsbHc_DiagProviderModule"
DMTF_SCHEMA = os.path.join(os.environ.get("PEGASUS_ROOT", ""), "Schemas/CIM241/DMTF")


class RegistrationCase(unittest.TestCase):
    def setUp(self):
        show_devices(sample("ohci-tree.txt"))
        self.server = Server(INSTALLATION)
        self.addCleanup(self.server.close)

    def command(self, *arguments, status=0):
        done = self.server.run(COMMAND, *arguments, check=False)
        self.assertEqual(done.returncode, status, done.stdout)
        return done.stdout

    def register(self):
        return self.command("register", "--devices", sample("ohci-tree.txt"))


class Registration(RegistrationCase):
    def contents(self):
        """Whatever a registration could leave behind: namespaces, what they hold, modules, links."""
        found = {"modules": self.server.run("cimprovider", "-l").stdout,
                 "libraries": sorted(os.listdir(self.server.home / "lib"))}
        for namespace in self.server.namespaces():
            for what in ("nc -di", "eq", "ni PG_ProviderCapabilities"):
                answer = self.server.run("cimcli", *what.split(), "-n", namespace, check=False)
                found[namespace, what] = sorted(answer.stdout.splitlines())
        return found

    def test_unregister_leaves_the_server_as_it_was(self):
        self.server.start()
        before = self.contents()
        self.register()
        self.assertNotEqual(self.contents(), before)
        client = Client(self.server.url)
        self.addCleanup(client.close)
        client.names(TEST)
        self.command("unregister")
        self.assertEqual(self.contents(), before)

    def test_server_that_lists_one_namespace_alone(self):
        """As one that was built without the Interop provider."""
        self.server.start()
        self.server.replace_tool("cimcli", '[ "$1" != ns ] || { echo root/PG_InterOp; exit; }')
        before = self.contents()
        self.register()
        self.assertIn("Everything is in place", self.command("check"))
        self.assertRegex(self.command("list"), r"(?m)^ZORVA_UsbHc_DiagTest +1 instances$")
        self.command("unregister")
        self.assertEqual(self.contents(), before)

    def test_namespace_that_the_server_does_not_tell_of_is_not_taken_for_missing(self):
        self.server.start()
        self.register()
        before = self.contents()
        self.server.replace_tool("cimcli", 'case "$*" in "nc -n root/kavex") '
                                 'echo "CIM_ERR_ACCESS_DENIED" >&2; exit 2 ;; esac')
        for command in "check", "list", "unregister":
            said = self.command(command, status=1)
            self.assertIn("does not tell whether there is a namespace root/kavex", said)
            self.assertIn("  | CIM_ERR_ACCESS_DENIED", said)
        self.assertEqual(self.contents(), before)

    def test_every_step_may_be_repeated(self):
        self.server.start()
        self.register()
        once = self.contents(), self.command("list")
        self.register()
        self.assertEqual((self.contents(), self.command("list")), once)
        self.command("reregister", "--devices", sample("ohci-tree.txt"))
        self.assertEqual((self.contents(), self.command("list")), once)
        self.command("unregister")
        self.assertIn("root/kavex: not there", self.command("unregister"))

    def test_registering_with_a_stopped_server_holds_from_its_start(self):
        said = self.register()
        self.assertIn("The CIM server is not running: its repository", said)
        self.server.start()
        self.assertIn("Everything is in place", self.command("check"))
        stopped_way = self.contents()
        self.command("unregister")
        self.register()
        self.assertEqual(self.contents(), stopped_way)

    def test_unregistering_needs_a_running_server_and_says_so(self):
        self.register()
        self.assertIn("unregistering needs a running CIM server", self.command("unregister", status=1))
        self.server.start()
        self.command("unregister")

    def test_reregistering_with_a_stopped_server_adds_what_lacks(self):
        self.command("reregister", "--devices", sample("ohci-tree.txt"))
        self.server.start()
        self.assertIn("Everything is in place", self.command("check"))

    def test_classes_of_others_stay(self):
        self.server.start()
        self.register()
        foreign = self.server.root / "foreign.mof"
        foreign.write_text("class ACME_Thing : CIM_LogicalElement { [Key] string Id; };\n")
        self.server.run("cimmof", "-n", "root/kavex", foreign)
        said = self.command("unregister")
        self.assertIn("root/kavex stays, with its superclasses: it holds 1 classes of others "
                      "(ACME_Thing, ...)", said)
        left = self.server.run("cimcli", "nc", "-di", "-n", "root/kavex").stdout.split()
        self.assertIn("ACME_Thing", left)
        self.assertIn("CIM_LogicalElement", left)
        self.assertEqual([name for name in left if name.startswith(("ZORVA_", "QUIRVO_"))], [])
        self.register()
        self.assertIn("Everything is in place", self.command("check"))

    @unittest.skipUnless(os.path.isdir(DMTF_SCHEMA), "PEGASUS_ROOT names no OpenPegasus source tree")
    def test_beside_the_whole_dmtf_schema(self):
        self.server.start()
        self.server.run("cimmof", "-w", "-aE", "-n", "root/kavex", "-I", DMTF_SCHEMA,
                        os.path.join(DMTF_SCHEMA, "cim_schema_2.41.0.mof"))
        before = self.contents()
        self.register()
        self.assertIn("Everything is in place", self.command("check"))
        client = Client(self.server.url)
        self.addCleanup(client.close)
        answer = client.invoke(client.names(TEST)[0], "RunTest", [
            ("SystemElement", client.names(ELEMENT)[0]), ("Setting", client.names(SETTING)[0])])
        self.assertEqual(answer.value, "0")
        self.assertEqual(client.get(answer.parameters["Result"])["TestResults"],
                         expected_results(sample("ohci-tree.txt")))
        self.command("unregister")
        self.assertEqual(self.contents(), before)

    def test_subclass_of_ours_keeps_its_class_and_is_named(self):
        self.server.start()
        self.register()
        foreign = self.server.root / "foreign.mof"
        foreign.write_text("class ACME_UsbHc : ZORVA_UsbHc { };\n")
        self.server.run("cimmof", "-n", "root/kavex", foreign)
        said = self.command("unregister", status=1)
        self.assertIn("the class ZORVA_UsbHc could not be removed", said)
        self.assertIn("CIM_ERR_CLASS_HAS_CHILDREN", said)

    def test_list_tells_what_is_there(self):
        self.server.start()
        self.assertIn("provider module  not registered", self.command("list"))
        self.register()
        said = self.command("list")
        self.assertIn(f"provider module  {MODULE}, OK", said)
        self.assertRegex(said, r"(?m)^ZORVA_UsbHc +[1-9]\d* instances$")
        self.assertRegex(said, r"(?m)^ZORVA_UsbHc_DiagTest +1 instances$")
        self.assertRegex(said, r"(?m)^ZORVA_UsbHc_DiagResult +0 instances$")

    def test_library_that_is_not_there_is_named(self):
        self.server.start()
        said = self.command("register", "--library", "/nowhere/lib.so", status=1)
        self.assertIn("/nowhere/lib.so cannot be read", said)

    def test_library_of_the_administrators_own_is_not_replaced(self):
        self.server.start()
        own = self.server.home / "lib" / LIBRARY
        own.write_text("theirs")
        other = self.server.root / "other.so"
        other.touch()
        said = self.command("register", "--library", other, status=1)
        self.assertIn(f"{own} is a file of its own", said)
        self.assertEqual(own.read_text(), "theirs")

    def test_missing_tools_are_named(self):
        environment = dict(self.server.environment)
        del self.server.environment["PEGASUS_HOME"]
        # Whoever runs the tests may have a server's tools on a path of their own.
        self.server.environment["PATH"] = os.pathsep.join(
            folder for folder in environment["PATH"].split(os.pathsep)
            if not os.path.exists(os.path.join(folder, "cimserver")))
        said = self.command("check", status=1)
        self.server.environment.update(environment)
        self.assertIn("cimserver was not found", said)
        self.assertIn("set PEGASUS_HOME", said)

    def test_wrong_usage(self):
        self.assertIn("no command given", self.command(status=2))
        self.assertIn("there is no command frobnicate", self.command("frobnicate", status=2))
        self.assertIn("register does not know --frob", self.command("register", "--frob", status=2))
        self.assertIn("--library needs a value", self.command("register", "--library", status=2))
        self.assertIn("usage:", self.command("--help"))


class Check(RegistrationCase):
    """The check names the first thing that is wrong on the way that a request takes."""

    def assert_wrong(self, problem, advice):
        said = self.command("check", status=1).splitlines()
        wrong = [line for line in said if line.startswith("WRONG")]
        self.assertEqual(len(wrong), 1, said)
        self.assertRegex(wrong[0], problem)
        self.assertIn(advice, said[said.index(wrong[0]) + 1])

    def test_stopped_server(self):
        self.assert_wrong("the CIM server is not running", "Start it")

    def test_no_namespace(self):
        self.server.start()
        self.assert_wrong("there is no namespace root/kavex", "register")

    def test_missing_class(self):
        self.server.start()
        self.register()
        self.server.run("cimcli", "dc", RESULT_FOR_TEST, "-n", "root/kavex")
        self.assert_wrong(f"there is no class {RESULT_FOR_TEST}", "reregister")

    def test_missing_registration(self):
        self.server.start()
        self.register()
        self.server.run("cimprovider", "-r", "-m", MODULE)
        self.assert_wrong(f"the provider module {MODULE} is not registered", "register")

    def test_disabled_module(self):
        self.server.start()
        self.register()
        self.server.run("cimprovider", "-d", "-m", MODULE)
        self.assert_wrong(f"the provider module {MODULE} is disabled", "cimprovider -e")

    def test_class_without_provider(self):
        self.server.start()
        self.register()
        name = f'PG_ProviderCapabilities.ProviderModuleName="{MODULE}",' \
               'ProviderName="ZORVA_UsbHc_DiagProvider",CapabilityID="Result"'
        self.server.run("cimcli", "di", name, "-n", "root/PG_InterOp")
        self.assert_wrong(f"no provider is registered for the class {RESULT}$", "reregister")

    def test_missing_library(self):
        self.server.start()
        self.register()
        (self.server.home / "lib" / LIBRARY).unlink()
        self.assert_wrong(f"{LIBRARY} is not in ", "register")

    def test_dangling_library_link(self):
        self.server.start()
        self.register()
        link = self.server.home / "lib" / LIBRARY
        link.unlink()
        link.symlink_to("/nowhere/else.so")
        self.assert_wrong(f"{LIBRARY} is not in ", "register")
        self.register()
        self.assertIn("Everything is in place", self.command("check"))

    def test_no_element(self):
        self.server.start()
        self.register()
        for name in self.server.run("cimcli", "ni", ELEMENT, "-n", "root/kavex").stdout.split("\n"):
            if name:
                self.server.run("cimcli", "di", name, "-n", "root/kavex")
        self.assert_wrong("holds no USB host controller", "reregister")

    def test_list_missing_empty_or_a_pipe(self):
        self.server.start()
        self.register()
        DEVICE_LIST.unlink()
        self.assert_wrong(f"the server sees no {DEVICE_LIST}", "/sys/kernel/debug/usb/devices")
        DEVICE_LIST.touch()
        self.assert_wrong(f"{DEVICE_LIST} holds no device", "/sys/kernel/debug/usb/devices")
        DEVICE_LIST.unlink()
        os.mkfifo(DEVICE_LIST)
        self.assert_wrong(f"{DEVICE_LIST} is a pipe", "/sys/kernel/debug/usb/devices")
        DEVICE_LIST.unlink()
        DEVICE_LIST.symlink_to(sample("ohci-tree.txt"))
        self.assert_wrong(f"{DEVICE_LIST} is no regular file", "/sys/kernel/debug/usb/devices")
        DEVICE_LIST.unlink()

    def test_list_without_end(self):
        self.server.start()
        self.register()
        line = b"T:  Bus=01\n"
        self.show_line_at(line, 65536 - len(line))
        self.assertIn("device list with 1 devices", self.command("check"))
        self.show_line_at(line, 65536)
        self.assert_wrong(f"{DEVICE_LIST} holds no device", "/sys/kernel/debug/usb/devices")

    @staticmethod
    def show_line_at(line, position):
        """A list of so many bytes of other lines, then this line, then nothing that ends soon."""
        with open(DEVICE_LIST, "wb") as file:
            file.write(b"\n" * position + line)
            file.truncate(10 * 2**30)

    @unittest.skipIf(os.geteuid() != 0, "only root can become somebody else")
    def test_process_of_somebody_elses_is_not_taken_for_the_server(self):
        folder = tempfile.mkdtemp(dir="/var/tmp")
        os.chmod(folder, 0o755)
        program = shutil.copy(shutil.which("sleep"), os.path.join(folder, "cimserver"))
        # Before the server, so that they come before it; each with a list of its own, which is empty.
        show = f'mount --bind /dev/null {DEVICE_LIST}; exec setpriv --reuid=65534 --clear-groups "$0" 600'
        for _ in range(10):
            decoy = subprocess.Popen(["unshare", "--mount", "sh", "-c", show, program])
            self.addCleanup(decoy.wait)
            self.addCleanup(decoy.kill)
            wait_for(lambda: decoy_runs(decoy.pid), "the decoy has its name")
        self.server.start()
        self.register()
        self.assertIn("Everything is in place", self.command("check"))

    def test_library_that_does_not_load(self):
        self.server.start()
        self.register()
        broken = self.server.root / "broken.so"
        broken.write_text("no library")
        link = self.server.home / "lib" / LIBRARY
        link.unlink()
        link.symlink_to(broken)
        self.assert_wrong("the test does not enumerate: .*ProviderLoadFailure", "may not load")


def decoy_runs(process):
    with open(f"/proc/{process}/comm") as file:
        return file.read() == "cimserver\n"


class KernelList(unittest.TestCase):
    def setUp(self):
        self.server = Server(INSTALLATION)
        self.addCleanup(self.server.close)
        self.units = self.server.root / "units"
        self.server.environment["USBHCDIAG_UNIT_FOLDER"] = str(self.units)

    def test_drop_in_comes_and_goes(self):
        drop_in = self.units / "cimd.service.d/50-usb-device-list.conf"
        said = self.server.run(COMMAND, "show-kernel-list", "--unit", "cimd.service").stdout
        self.assertIn("systemctl restart cimd", said)
        self.assertIn("BindReadOnlyPaths=-/sys/kernel/debug/usb/devices:/proc/bus/usb/devices",
                      drop_in.read_text())
        self.server.run(COMMAND, "show-kernel-list", "--unit", "cimd", "--remove")
        self.assertFalse(drop_in.exists())

    @unittest.skipUnless(shutil.which("systemd-analyze"), "systemd-analyze is not installed")
    def test_systemd_understands_the_drop_in(self):
        self.server.run(COMMAND, "show-kernel-list", "--unit", "cimd")
        unit = self.units / "cimd.service"
        unit.write_text("[Service]\nExecStart=/bin/true\n")
        said = self.server.run("systemd-analyze", "verify", "--man=no", "--recursive-errors=no", unit)
        self.assertEqual(said.stdout, "")


if __name__ == "__main__":
    main()
