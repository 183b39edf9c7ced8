#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Device names in whatever bytes devices have, through the real server to the client."""

import os
import pathlib
import tempfile

from openpegasus_case import *

ROOT_HUB = (b"T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=12  MxCh= 2\n"
            b"D:  Ver= 1.10 Cls=%s(text) Sub=00 Prot=00 MxPS= 8 #Cfgs=  1\n"
            b"P:  Vendor=1234 ProdID=5678 Rev= 1.00\n"
            b"S:  Manufacturer=%s\n"
            b"S:  Product=%s\n"
            b"S:  SerialNumber=0000:00:14.0\n"
            b"C:* #Ifs= 1 Cfg#= 1 Atr=40 MxPwr=  0mA\n"
            b"I:  If#= 0 Alt= 0 #EPs= 1 Cls=%s Sub=02 Prot=01 Driver=acm\n"
            b"E:  Ad=81(I) Atr=03(Int.) MxPS=   8 Ivl=255ms\n")


class Texts:
    def report(self, manufacturer=b"Maker", product=b"Product", interface_class=b"09(hub  )"):
        content = ROOT_HUB % (b"09", manufacturer, product, interface_class)
        show_devices(content)
        answer = self.run_test(self.elements()[0])
        self.assertEqual(answer.value, "0")
        result = self.client.get(answer.parameters["Result"])
        self.assertEqual(result["TestState"], "2")
        with tempfile.NamedTemporaryFile() as device_list:
            device_list.write(content)
            device_list.flush()
            self.assertEqual(result["TestResults"], expected_results(device_list.name))
        return {line[:30].rstrip(): line[30:] for line in result["TestResults"]}

    def test_latin1_name(self):
        self.assertEqual(self.report(b"Ger\xe4te GmbH")["Vendor Name"], "Ger\u00e4te GmbH")

    def test_utf8_name(self):
        self.assertEqual(self.report("Ger\u00e4te \u4e2d\u6587 \U0001f600".encode())["Vendor Name"],
                         "Ger\u00e4te \u4e2d\u6587 \U0001f600")

    def test_utf8_cut_in_the_middle_of_a_character(self):
        self.assertEqual(self.report(b"Ger\xc3\xa4te \xe4\xb8")["Vendor Name"],
                         "Ger\u00e4te \u00e4\u00b8")

    def test_windows_1252_name(self):
        self.assertEqual(self.report(b"\x93Maker\x94 \x99")["Vendor Name"],
                         "\u201cMaker\u201d \u2122")

    def test_every_byte_that_a_name_may_hold(self):
        for start in range(1, 256, 32):
            name = bytes(b for b in range(start, min(start + 32, 256)) if b not in b"\n\r\x00")
            self.assertIn("Vendor Name", self.report(b"a" + name + b"z"))

    def test_characters_that_xml_cannot_carry(self):
        self.assertEqual(self.report(b"a\x01b\xef\xbf\xbfc")["Vendor Name"], "a\ufffdb\ufffdc")

    def test_markup_in_a_name(self):
        self.assertEqual(self.report(b"<a & 'b' \"c\">]]>")["Vendor Name"], "<a & 'b' \"c\">]]>")

    def test_protocol_whose_text_is_not_ascii(self):
        legible = "Common AT commands (also known as \u201cHayes\u2122 compatible\u201d)"
        self.assertEqual(self.report(interface_class=b"02(comm.)")["Interface Protocol"], legible)
        result = self.client.names(RESULT)[0]
        keys = ",".join(f'{name}="{value}"' for name, value in result.keys.items())
        shown = self.server.run(
            "wbemcli", "gi", f"http://127.0.0.1:{self.server.port}/root/kavex:{RESULT}.{keys}",
            "TestResults").stdout
        self.assertIn(legible, shown)

    def test_samples_and_captures(self):
        lists = sorted((source_dir() / "samples").glob("*.txt"))
        if captures := os.environ.get("ZORVA_CAPTURES"):
            lists += sorted(pathlib.Path(captures).glob("*.txt"))
        for device_list in lists:
            with self.subTest(device_list.name):
                show_devices(device_list)
                answer = self.run_test(self.elements()[0])
                self.assertEqual(self.client.get(answer.parameters["Result"])["TestResults"],
                                 expected_results(device_list))


in_both_places(globals(), Texts)

if __name__ == "__main__":
    main()
