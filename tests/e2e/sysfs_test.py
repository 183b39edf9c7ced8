#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""usbhcdiag where the kernel's list cannot be read, on a machine whose sysfs is made up:
sysfs_test.py PROGRAMS SOURCES MAKE_SYSFS [unittest options]"""
import json
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from lists import SAMPLES
from namespaces import in_namespaces, require_namespaces
from programs import SOURCES, USBHCDIAG

MAKE_SYSFS = str(Path(sys.argv.pop(1)).resolve())
sys.path.insert(0, str(SOURCES / "tests"))
import expected_report

SOMEBODY = "54321"
ORIGIN = ("usbhcdiag: the device list was made from /sys/bus/usb/devices, since "
          "/sys/kernel/debug/usb/devices cannot be read (No such file or directory)")

# As a kernel of today prints it, but for the bandwidth.
LIST = """
T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=12   MxCh= 4
D:  Ver= 1.10 Cls=09(hub  ) Sub=00 Prot=00 MxPS=64 #Cfgs=  1
P:  Vendor=1d6b ProdID=0001 Rev= 6.01
S:  Manufacturer=Linux 6.1.0 ohci_hcd
S:  Product=OHCI PCI host controller
S:  SerialNumber=0000:00:1d.7
C:* #Ifs= 1 Cfg#= 1 Atr=e0 MxPwr=  0mA
I:* If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub
E:  Ad=81(I) Atr=03(Int.) MxPS=   2 Ivl=255ms

T:  Bus=01 Lev=01 Prnt=01 Port=02 Cnt=01 Dev#=  2 Spd=1.5  MxCh= 0
D:  Ver= 1.10 Cls=00(>ifc ) Sub=00 Prot=00 MxPS= 8 #Cfgs=  1
P:  Vendor=046d ProdID=c00e Rev=11.10
S:  Product=Optical Mouse
C:* #Ifs= 1 Cfg#= 1 Atr=a0 MxPwr= 98mA
I:* If#= 0 Alt= 0 #EPs= 1 Cls=03(HID  ) Sub=01 Prot=02 Driver=usbhid
E:  Ad=81(I) Atr=03(Int.) MxPS=   4 Ivl=10ms

T:  Bus=02 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=12   MxCh= 2
D:  Ver= 1.10 Cls=09(hub  ) Sub=00 Prot=00 MxPS=64 #Cfgs=  1
P:  Vendor=1d6b ProdID=0001 Rev= 6.01
S:  Product=OHCI PCI host controller
S:  SerialNumber=0000:00:1d.0
C:* #Ifs= 1 Cfg#= 1 Atr=e0 MxPwr=  0mA
I:* If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub
E:  Ad=81(I) Atr=03(Int.) MxPS=   2 Ivl=255ms
"""


class Case(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.sysfs = os.path.join(folder.name, "sys")
        os.chmod(folder.name, 0o755)
        path = os.path.join(folder.name, "list")
        Path(path).write_text(LIST)
        subprocess.run([MAKE_SYSFS, path, self.sysfs], check=True)
        self.report = "".join(line + "\n" for line in expected_report.test_results(LIST.encode()))

    def as_somebody(self, *words):
        """What usbhcdiag does for an ordinary user who may make user namespaces."""
        if os.geteuid() == 0:
            return in_namespaces(False, 'mount --bind "$1" /sys; shift; exec setpriv --reuid=%s --regid=%s '
                                 '--clear-groups --inh-caps=-all "$@"' % (SOMEBODY, SOMEBODY),
                                 self.sysfs, USBHCDIAG, *words)
        return in_namespaces(True, 'mount --bind "$1" /sys; shift; exec "$@"', self.sysfs, USBHCDIAG, *words)

    def without_rights(self, *words):
        """The same where the kernel makes no user namespace."""
        return in_namespaces(True, 'mount --bind "$1" /sys; shift; '
                             'echo 0 >/proc/sys/user/max_user_namespaces; '
                             'exec setpriv --bounding-set=-all --inh-caps=-all "$@"',
                             self.sysfs, USBHCDIAG, *words)


class Run(Case):
    def test_an_ordinary_user_gets_the_report_and_is_told_where_the_list_came_from(self):
        run = self.as_somebody("run")
        self.assertEqual((run.stdout, run.returncode), (self.report, 0), run.stderr)
        self.assertEqual(run.stderr.split("\n")[0], ORIGIN)
        self.assertNotIn("made from", run.stderr[len(ORIGIN):])

    def test_the_result_is_filed_under_the_controller_that_is_first_for_root(self):
        run = self.as_somebody("run", "--json")
        self.assertIn('"ExecutionID": "0000:00:1d.0"', run.stdout)
        elements = self.as_somebody("elements")
        self.assertEqual([line.split()[0] for line in elements.stdout.splitlines()[1:]],
                         ["0000:00:1d.0", "0000:00:1d.7"])
        self.assertEqual(elements.stderr, "")

    def test_without_user_namespaces_it_says_so(self):
        run = self.without_rights("run")
        self.assertEqual((run.stdout, run.returncode), ("", 3))
        self.assertIn("nothing was read: there is no /proc/bus/usb/devices.\n"
                      "A list made from /sys/bus/usb/devices cannot be shown to the test here:\n"
                      "cannot make a private mount namespace", run.stderr)
        self.assertNotIn(ORIGIN, run.stderr)

    def test_a_list_of_choice_is_none_of_sysfs(self):
        run = self.as_somebody("run", "--devices", str(SAMPLES / "ohci-tree.txt"))
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertNotIn("made from", run.stderr)

    def test_a_machine_without_usb_is_as_it_was(self):
        shutil.rmtree(self.sysfs)
        os.mkdir(self.sysfs)
        run = self.as_somebody("run")
        self.assertEqual((run.stdout, run.returncode), ("", 3))
        self.assertIn("this machine shows no USB host controller", run.stderr)


class Devices(Case):
    def test_are_those_of_sysfs(self):
        run = self.as_somebody("devices", "--json")
        self.assertEqual((run.stderr, run.returncode), ("", 0))
        document = json.loads(run.stdout)
        self.assertEqual(document["source"], {"kind": "sysfs", "path": "/sys/bus/usb/devices",
                                              "bytes": len(LIST)})
        self.assertEqual([device["port_path"] for device in document["devices"]], ["usb1", "1-3", "usb2"])
        result = json.loads(self.as_somebody("run", "--json").stdout)
        self.assertEqual(result["device_list"], document)

    def test_need_no_namespace(self):
        run = self.without_rights("devices")
        self.assertEqual((run.stderr, run.returncode), ("", 0))
        self.assertEqual(run.stdout.count("\n"), 4)

    def test_of_a_machine_without_usb_are_none(self):
        shutil.rmtree(self.sysfs)
        os.mkdir(self.sysfs)
        run = self.as_somebody("devices")
        self.assertEqual((run.stdout, run.returncode), ("", 3))
        self.assertIn("this machine shows no USB host controller", run.stderr)


class Record(Case):
    def test_without_the_kernels_list_it_is_made_from_sysfs(self):
        run = self.as_somebody("record")
        self.assertEqual((run.stdout, run.stderr, run.returncode), (LIST, ORIGIN + "\n", 0))

    def test_the_kernels_list_is_taken_as_it_stands(self):
        text = LIST + "noise\n"
        folder = os.path.join(self.sysfs, "kernel", "debug", "usb")
        os.makedirs(folder)
        Path(folder, "devices").write_text(text)
        run = self.as_somebody("record")
        self.assertEqual((run.stdout, run.stderr, run.returncode),
                         (text, "usbhcdiag: the device list is the kernel's, "
                                "/sys/kernel/debug/usb/devices\n", 0))

    def test_a_machine_without_usb_has_none(self):
        shutil.rmtree(self.sysfs)
        os.mkdir(self.sysfs)
        run = self.as_somebody("record")
        self.assertEqual((run.stdout, run.returncode), ("", 3))
        self.assertIn("this machine shows no USB host controller", run.stderr)


class Diff(Case):
    def test_without_a_second_list_it_is_this_machines(self):
        path = os.path.join(os.path.dirname(self.sysfs), "list")
        run = self.as_somebody("diff", path)
        self.assertEqual((run.stdout, run.stderr, run.returncode), ("", "", 0))
        Path(path).write_text(LIST.replace("Driver=usbhid", "Driver=(none)"))
        run = self.as_somebody("diff", path)
        # The maker may come from the hardware database.
        self.assertRegex(run.stdout, r"^CHANGE .*\nchanged  1-3   046d:c00e  .*Optical Mouse  "
                                     r"driver of interface 0: usbhid, was \(none\)\n$")
        self.assertEqual((run.stderr, run.returncode), ("", 1))


if __name__ == "__main__":
    require_namespaces()
    unittest.main(verbosity=2)
