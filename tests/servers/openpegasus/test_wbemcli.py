#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The cases of the embedded host, driven by wbemcli, against a real OpenPegasus."""

import shutil
import sys
import types

from openpegasus_case import *
from pegasus_server import build_dir, skip

# The module takes the programs and the sources from the command line when it is imported.
sys.path.insert(0, str(source_dir() / "tests/e2e"))
sys.argv[1:1] = [str(build_dir() / "bin"), str(source_dir())]
import wbemcli_test  # noqa: E402


class Cases(wbemcli_test.WbemcliTest):
    device_list = "ohci-tree.txt"

    # About the embedded host's own standard output.
    test_what_the_library_prints_does_not_reach_standard_output = None

    def setUp(self):
        OpenPegasusCase.setUp(self)
        self.clear_all()
        # What an earlier case made of its own.
        for name in self.client.names(SETTING):
            if name.keys["InstanceID"] != "ZORVA:UsbHcDefaultSetting":
                self.client.delete(name)
        self.host = types.SimpleNamespace(port=self.server.port)

    # The cases call their own run_test(); the base class has one of that name, too.
    run_test = wbemcli_test.WbemcliTest.run_test


in_both_places(globals(), Cases)
del Cases

if __name__ == "__main__":
    if shutil.which("wbemcli") is None:
        skip("wbemcli is not installed (Debian package sblim-wbemcli)")
    main()
