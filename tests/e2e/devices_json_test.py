#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What usbhcdiag prints for programs, held against its schema and against a few lines of regular expressions:
devices_json_test.py PROGRAMS SOURCES [unittest options]"""
import copy
import json
import re
import sys
import unittest

try:
    import jsonschema
except ImportError:
    print("skipped: this machine lacks python3-jsonschema")
    sys.exit(77)

from lists import LISTS, SAMPLES, devices_of, field
from programs import SOURCES, usbhcdiag

SCHEMA = json.loads((SOURCES / "docs" / "json" / "devices.schema.json").read_text())
TYPES = {"Ctrl": "control", "Isoc": "isochronous", "Bulk": "bulk", "Int.": "interrupt"}
DIRECTIONS = {"I": "in", "O": "out", "B": "both"}


def exactly(schema):
    """The schema, which lets members be added later, for this version: with no others than it names."""
    if isinstance(schema, dict):
        if "properties" in schema:
            schema["additionalProperties"] = False
        for each in schema.values():
            exactly(each)
    elif isinstance(schema, list):
        for each in schema:
            exactly(each)
    return schema


VALIDATOR = jsonschema.Draft202012Validator(exactly(copy.deepcopy(SCHEMA)))


def as_utf8(text):
    """A string of a list that was read as ISO 8859-1, as JSON has it."""
    return None if text is None else text.encode("latin-1").decode("utf-8", "replace")


def expected_endpoint(line):
    fields = re.match(r"E:  Ad=(..)\((.)\) Atr=..\((.{4})\) MxPS= *(\d+) Ivl= *(\d+)(.)s", line)
    address, direction, kind, size, interval, unit = fields.groups()
    return {"address": address, "direction": DIRECTIONS[direction], "type": TYPES[kind],
            "max_packet_bytes": int(size), "interval": int(interval) * (1000 if unit == "m" else 1)}


def expected_interfaces(block):
    configurations = re.findall(r"^C:.*\n(?:[AIE]:.*\n?)*", block, re.MULTILINE)
    chosen = [text for text in configurations if text.startswith("C:*")] or configurations[:1]
    interfaces = []
    for line in chosen[0].splitlines() if chosen else []:
        if line.startswith("I:"):
            driver = field(r"Driver=(.*)$", line)
            interfaces.append({
                "number": int(field(r"If#= *(\d+)", line)), "alternate": int(field(r"Alt= *(\d+)", line)),
                "active": line[2] == "*", "class": field(r"Cls=(..)", line),
                "subclass": field(r"Sub=(..)", line), "protocol": field(r"Prot=(..)", line),
                "driver": None if driver in (None, "", "(none)") else driver, "endpoints": []})
        elif line.startswith("E:"):
            interfaces[-1]["endpoints"].append(expected_endpoint(line))
    return interfaces


def expected_devices(text):
    for block, bus, level, number, path in devices_of(text):
        speed = field(r"Spd=(\S+)", block)
        vendor, product = field(r"Vendor=(\w+)", block), field(r"ProdID=(\w+)", block)
        active = "\nC:*" in block
        version, release = field(r"Ver= *(\S+)", block), field(r"Rev= *(\S+)", block)
        yield {"bus": bus, "number": number, "level": level, "port_path": path,
               "parent": None if level == 0 or path is None else
                         "usb%d" % bus if level == 1 else path.rpartition(".")[0],
               "id": vendor and "%s:%s" % (vendor, product), "vendor_id": vendor, "product_id": product,
               "vendor": as_utf8(field(r"^S:  Manufacturer=(.*)$", block)),
               "product": as_utf8(field(r"^S:  Product=(.*)$", block)),
               "serial": as_utf8(field(r"^S:  SerialNumber=(.*)$", block)),
               "usb_version": version, "device_version": release,
               "speed_mbps": None if speed == "??" else float(speed), "configured": active,
               "max_power_ma": int(field(r"^C:\*.*MxPwr= *(\d+)mA", block)) if active else None,
               "interfaces": expected_interfaces(block)}


class Json(unittest.TestCase):
    def checked(self, *words, status=0, **options):
        """What is printed, once it is valid."""
        run = usbhcdiag(*words, **options)
        self.assertEqual(run.returncode, status, run.stderr)
        document = json.loads(run.stdout.decode("utf-8"))
        VALIDATOR.validate(document)
        return document

    def test_the_schema_is_one(self):
        jsonschema.Draft202012Validator.check_schema(SCHEMA)
        with self.assertRaises(jsonschema.ValidationError):
            VALIDATOR.validate({"format_version": 1})

    def test_agrees_with_the_lists(self):
        self.assertTrue(LISTS)
        for path in LISTS:
            with self.subTest(path.name):
                text = path.read_bytes()
                expected = list(expected_devices(text.decode("latin-1").replace("\r", "")))
                document = self.checked("devices", "--json", path, status=0 if expected else 3)
                self.assertEqual(document["source"],
                                 {"kind": "file", "path": str(path), "bytes": len(text)})
                self.assertEqual(len(document["devices"]), len(expected))
                for device, facts in zip(document["devices"], expected):
                    if "\r" not in text.decode("latin-1"):
                        self.assertEqual({name: device[name] for name in facts if name != "interfaces"},
                                         {name: facts[name] for name in facts if name != "interfaces"})
                    for interface in device["interfaces"]:
                        del interface["class_name"]
                    self.assertEqual(device["interfaces"], facts["interfaces"])

    def test_the_report_is_that_of_a_run_which_has_the_same_object(self):
        for path in sorted(SAMPLES.glob("*.txt")):
            with self.subTest(path.name):
                document = self.checked("devices", "--json", path)
                run = json.loads(usbhcdiag("run", "--json", "--devices", path).stdout)
                self.assertEqual(run["device_list"], document)
                for name in ("devices_in_list", "devices_in_report", "left_out"):
                    self.assertEqual(document["report"][name], run[name])
                left_out = [device["position"] for device in run["left_out"]]
                self.assertEqual([n for n, device in enumerate(document["devices"], 1)
                                  if not device["in_report"]], left_out)

    def test_controllers_have_their_buses(self):
        controllers = self.checked("devices", "--json", SAMPLES / "xhci-today.txt")["controllers"]
        self.assertEqual(controllers, [{"device_id": "0000:00:14.0", "name": "xHCI Host Controller",
                                        "driver": "xhci-hcd", "buses": [1, 2]}])

    def test_filters_choose_devices_and_nothing_else(self):
        path = SAMPLES / "uhci-ehci-desktop.txt"
        whole = self.checked("devices", "--json", path)
        chosen = self.checked("devices", "--json", path, "--bus", "2")
        self.assertEqual([device["port_path"] for device in chosen["devices"]], ["usb2", "2-1"])
        for name in ("controllers", "report", "problems", "source"):
            self.assertEqual(chosen[name], whole[name])

    def test_problems_name_their_device(self):
        document = self.checked("devices", "--json", SAMPLES / "unconfigured-devices.txt")
        problems = [(each["device"], each["kind"]) for each in document["problems"]]
        unconfigured = [device["port_path"] for device in document["devices"] if not device["configured"]]
        self.assertTrue(unconfigured)
        for path in unconfigured:
            self.assertIn((path, "unconfigured"), problems)

    def test_any_damaged_list_makes_a_valid_object(self):
        text = (SAMPLES / "uhci-ehci-desktop.txt").read_bytes()
        damaged = [text[:length] for length in range(0, len(text), 53)]
        damaged += [text[:place] + bytes([text[place] ^ 0xd5]) + text[place + 1:]
                    for place in range(0, len(text), 31)]
        damaged += [b"", b"T:", b"T:\nT:\nC:\nI:\nE:\n", bytes(range(256)) * 100]
        for each in damaged:
            run = usbhcdiag("devices", "--json", "-", input=each)
            self.assertIn(run.returncode, (0, 3), run.stderr)
            VALIDATOR.validate(json.loads(run.stdout.decode("utf-8")))


if __name__ == "__main__":
    unittest.main(verbosity=2)
