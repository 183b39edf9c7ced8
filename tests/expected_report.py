#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Derives from a USB device list what the programs of this project must report about it.

usage: expected_report.py driver LIST    the exact output of the stand-alone driver, and its exit status
       expected_report.py results LIST   the "TestResults" of a run, one line per entry, in UTF-8

A second opinion for the tests: written on its own, sharing nothing with the code under test.
"""
import re
import sys

READ_AT_MOST = 8192

CLASSES = ("", "Audio", "Communications", "Human Interface Device", "Monitor", "Physical Interface",
           "Power", "Printer", "Mass Storage", "Hub")
SUBCLASSES = {
    "10": "None", "11": "Audio Control", "12": "Audio Streaming", "13": "Midi Streaming",
    "20": "None", "21": "Direct Line Control Model", "22": "Abstract Control Model",
    "23": "Abstract Control Model", "24": "Multi-Channel Control Model", "25": "CAPI Control Model",
    "26": "Ethernet Networking Control Model", "27": "ATM Networking Control Model",
    "30": "None", "31": "Boot Interface", "3254": "Reserved", "3255": "Reserved",
    "70": "None", "71": "Printer",
    "80": "None", "81": "Reduced Block Commands", "82": "ATAPI", "83": "QIC-157 (tape device)",
    "84": "UFI (floppy disk drive)", "85": "SFF-8070i", "86": "SCSI", "800": "None", "90": "None",
}
PROTOCOLS = {
    "10": "None", "20": "None",
    "21": "Common AT commands (also known as \u201cHayes\u2122 compatible\u201d)",
    "30": "None", "31": "Keyboard", "32": "Mouse", "3254": "Reserved", "3255": "Reserved",
    "70": "None", "71": "Unidirectional Interface", "72": "Bi-directional Interface",
    "73": "1284.4 Compatible Bi-directional Interface",
    "80": "Control/Bulk/Interrupt (CBI) Transport (with command completion)",
    "81": "Control/Bulk/Interrupt (CBI) Transport (with no command completion)",
    "850": "Bulk-Only Transport",
}

# Which line holds what: (name, key, what ends the value; None is the end of the line).
VALUES = {
    b"T": (("level", b"lev=", b"prnt="), ("port", b"port=", b"cnt="), ("speed", b"spd=", b"mxch=")),
    b"D": (("version", b"ver=", b"cls"),),
    b"P": (("vendor", b"vendor=", b"prodid"), ("product id", b"prodid=", b"rev"),
           ("revision", b"rev=", None)),
    b"C": (("power", b"mxpwr=", b"ma"),),
    b"I": (("driver", b"driver=", None), ("class", b"cls=", b"("), ("subclass", b"sub=", b"prot"),
           ("number", b"if#=", b"alt"), ("protocol", b"prot=", b"driver")),
}


def value(line, key, end):
    """What stands in `line` after `key` and before the next `end`."""
    pattern = re.escape(key) + (b"(.*)" if end is None else b"(.*?)" + re.escape(end))
    # ASCII letters alone have a case here, as in a bytes pattern.
    found = re.search(re.escape(key), line, re.IGNORECASE)
    if not found:
        return b""
    found = re.compile(pattern, re.IGNORECASE | re.DOTALL).match(line, found.start())
    return found.group(1) if found else b""


def blank_device():
    names = [name for values in VALUES.values() for name, _, _ in values]
    return dict.fromkeys(names + ["product", "serial", "manufacturer", "host"], b"")


def take_strings(device, line):
    if b"Product" in line:
        device["product"] = value(line, b"product=", None)
        folded = line.lower()
        device["host"] = (b"OHCI" if b"ohci" in folded else
                          b"UHCI" if b"uhci" in folded else b"Unknown")
    if b"SerialNumber" in line:
        device["serial"] = value(line, b"serialnumber=", None)
    if b"Manufacturer" in line:
        device["manufacturer"] = value(line, b"manufacturer=", None)


def devices_of(list_bytes):
    """The devices that a reader with one read of READ_AT_MOST bytes finds, in order."""
    text = list_bytes[:READ_AT_MOST].split(b"\0")[0]
    lines = text.split(b"\n")[:-1]  # what no line feed ends is no line
    if text.startswith(b"\n"):
        lines.pop()  # a line feed in first place is not counted: the last line stays unread
    found, device, has_topology = [], blank_device(), False
    for line in lines:
        letter = line[:1]
        if letter == b"E" and has_topology:
            found.append(device)
            device, has_topology = blank_device(), False
        elif letter == b"S":
            take_strings(device, line)
        elif letter in VALUES:
            for name, key, end in VALUES[letter]:
                device[name] = value(line, key, end)
            has_topology = has_topology or letter == b"T"
    return found


def number(code):
    """The number that a code text is read as; None for an empty text."""
    if not code:
        return None
    if code[:1] == b"0":
        code = code[1:]
    digits = re.match(rb"[ \t\n\v\f\r]*([+-]?[0-9]+)", code)
    if not digits:
        return 0
    limited = max(-2**63, min(2**63 - 1, int(digits.group(1))))
    return (limited + 2**31) % 2**32 - 2**31  # what an int of 32 bits keeps of it


def name_within_class(table, class_number, code):
    class_digits = str(class_number)
    key = class_digits[0] + str(code) + class_digits[1:]
    return table.get(str(number(key.encode())))


class EmptyCode(Exception):
    """A device of the driver's report lacks a code."""


def lines_of(device, with_vendor_name, empty_codes_fail):
    """Yields the lines of a device's block, bytes, without line ends."""
    def line(label, text):
        return label.ljust(30).encode() + text

    def code(name):
        result = number(device[name])
        if result is None and empty_codes_fail:
            raise EmptyCode(name)
        return result

    yield line("Product Name ", device["product"])
    yield line("Serial Number ", device["serial"])
    if with_vendor_name:
        yield line("Vendor Name ", device["manufacturer"])
    yield line("Vendor ID ", device["vendor"])
    yield line("Product ID ", device["product id"])
    yield line("Revision ", device["revision"])
    yield line("USB Specification ", device["version"])
    yield line("Interface Number ", device["number"])
    class_number = code("class")
    known = class_number is not None and 1 <= class_number < len(CLASSES)
    yield line("Interface Class ", CLASSES[class_number].encode() if known else b"")
    for label, name, table in (("Interface Sub Class ", "subclass", SUBCLASSES),
                               ("Interface Protocol ", "protocol", PROTOCOLS)):
        second = code(name)
        text = None
        if class_number is not None and second is not None:
            text = name_within_class(table, class_number, second)
        if text is not None:
            yield line(label, text.encode("cp1252"))
        elif name == "subclass":
            yield line(label, b"")
    yield line("Port on Device ", device["port"])
    yield line("Device Driver ", device["driver"])
    yield line("Current Speed ", device["speed"])
    yield line("Maximum Current Draw (mAmps) ", device["power"])


def driver_report(list_bytes):
    """What the stand-alone driver prints, and its exit status."""
    out = [b"test code for usb host controller "]
    ohci_level = 0
    try:
        for device in devices_of(list_bytes):
            level = number(device["level"])
            if level is None:
                raise EmptyCode("level")
            if device["host"] == b"OHCI":
                ohci_level = level
                out.append(b" level is %d" % level)
            elif level != ohci_level + 1:
                continue
            for line in lines_of(device, with_vendor_name=False, empty_codes_fail=True):
                out.append(line)
            out.append(b"")
    except EmptyCode:
        return b"\n".join(out) + b"\n", 1
    return b"\n".join(out) + b"\n", 0


def as_text(line):
    """The characters of a report line: UTF-8 where it is well formed, else Windows-1252, and only
    characters that XML can carry."""
    characters, rest = [], line
    while rest:
        try:
            characters.append(rest.decode("utf-8"))
            break
        except UnicodeDecodeError as error:
            characters.append(rest[:error.start].decode("utf-8"))
            byte = rest[error.start:error.start + 1]
            try:
                characters.append(byte.decode("cp1252"))
            except UnicodeDecodeError:
                characters.append(chr(byte[0]))
            rest = rest[error.start + 1:]
    return re.sub("[\x00-\x08\x0b\x0c\x0e-\x1f\ufffe\uffff]", "\ufffd", "".join(characters))


def test_results(list_bytes):
    """The entries of "TestResults", as text."""
    results = []
    for device in devices_of(list_bytes):
        results += [as_text(line)
                    for line in lines_of(device, with_vendor_name=True, empty_codes_fail=False)]
        results.append(" " * 10)
    return results


def main(arguments):
    if len(arguments) != 2 or arguments[0] not in ("driver", "results"):
        sys.stderr.write(__doc__)
        return 2
    with open(arguments[1], "rb") as file:
        list_bytes = file.read()
    if arguments[0] == "driver":
        output, status = driver_report(list_bytes)
    else:
        output = "".join(line + "\n" for line in test_results(list_bytes)).encode("utf-8")
        status = 0
    sys.stdout.buffer.write(output)
    return status


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
