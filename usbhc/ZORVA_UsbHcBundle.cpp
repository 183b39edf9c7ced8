// SPDX-License-Identifier: MIT
#include "usbhc/ZORVA_UsbHcBundle.h"

#include <cstdlib>

namespace Pegasus {

namespace {

struct Entry {
    int key;
    const char* text;
};

template <std::size_t size>
const char* textOf(const Entry (&table)[size], int key) {
    for (const Entry& entry : table) {
        if (entry.key == key) {
            return entry.text;
        }
    }
    return nullptr;
}

/// The key of a subclass or protocol: its decimal digits, inserted after the first digit of the
/// class code. Class 8 and code 6 give 86, class 12 and code 3 give 132.
int keyWithinClass(int classCode, int code) {
    std::string key = std::to_string(classCode);
    key.insert(1, std::to_string(code));
    return ZORVA_UsbHcBundle::getIntValue(key);
}

constexpr Entry actions[] = {
    {1, "No Additional Action Necessary"},
    {2, "Check if a USB Host Controller is Installed"},
    {3, "Check Hub Driver"},
    {4, "Check Device"},
    {5, "Insert media into drive "},
};

constexpr Entry generalStrings[] = {
    {1, "Host Controller Number "}, {2, "Port "},          {3, "Vendor Name "},
    {4, "Product Name "},           {5, "Serial Number "}, {6, "Device Class "},
};

constexpr Entry statuses[] = {
    {1, "Success "},
    {2, "No Host Controller "},
    {3, "Node Connection Information Failure "},
    {5, "Node Information Failure "},
    {6, "Get Descriptor Failure "},
};

constexpr Entry classes[] = {
    {1, "Audio"},   {2, "Communications"},     {3, "Human Interface Device"},
    {4, "Monitor"}, {5, "Physical Interface"}, {6, "Power"},
    {7, "Printer"}, {8, "Mass Storage"},       {9, "Hub"},
};

constexpr Entry subClasses[] = {
    {10, "None"},
    {11, "Audio Control"},
    {12, "Audio Streaming"},
    {13, "Midi Streaming"},
    {20, "None"},
    {21, "Direct Line Control Model"},
    {22, "Abstract Control Model"},
    {23, "Abstract Control Model"},
    {24, "Multi-Channel Control Model"},
    {25, "CAPI Control Model"},
    {26, "Ethernet Networking Control Model"},
    {27, "ATM Networking Control Model"},
    {30, "None"},
    {31, "Boot Interface"},
    {3254, "Reserved"},
    {3255, "Reserved"},
    {70, "None"},
    {71, "Printer"},
    {80, "None"},
    {81, "Reduced Block Commands"},
    {82, "ATAPI"},
    {83, "QIC-157 (tape device)"},
    {84, "UFI (floppy disk drive)"},
    {85, "SFF-8070i"},
    {86, "SCSI"},
    {800, "None"},
    {90, "None"},
};

constexpr Entry protocols[] = {
    {10, "None"},
    {20, "None"},
    // Windows-1252: 0x93 and 0x94 are the quotation marks, 0x99 is the trade mark sign.
    {21, "Common AT commands (also known as \x93Hayes\x99 compatible\x94)"},
    {30, "None"},
    {31, "Keyboard"},
    {32, "Mouse"},
    {3254, "Reserved"},
    {3255, "Reserved"},
    {70, "None"},
    {71, "Unidirectional Interface"},
    {72, "Bi-directional Interface"},
    {73, "1284.4 Compatible Bi-directional Interface"},
    {80, "Control/Bulk/Interrupt (CBI) Transport (with command completion)"},
    {81, "Control/Bulk/Interrupt (CBI) Transport (with no command completion)"},
    {850, "Bulk-Only Transport"},
};

}  // namespace

const char* ZORVA_UsbHcBundle::getAction(int code) {
    return textOf(actions, code);
}

const char* ZORVA_UsbHcBundle::getGeneralString(int code) {
    return textOf(generalStrings, code);
}

const char* ZORVA_UsbHcBundle::getStatus(int code) {
    return textOf(statuses, code);
}

const char* ZORVA_UsbHcBundle::getClass(int classCode) {
    return textOf(classes, classCode);
}

const char* ZORVA_UsbHcBundle::getSubClass(int classCode, int subClassCode) {
    return textOf(subClasses, keyWithinClass(classCode, subClassCode));
}

const char* ZORVA_UsbHcBundle::getProtocol(int classCode, int protocolCode) {
    return textOf(protocols, keyWithinClass(classCode, protocolCode));
}

int ZORVA_UsbHcBundle::getIntValue(const std::string& text) {
    const char* digits = text.at(0) == '0' ? text.c_str() + 1 : text.c_str();
    constexpr int decimal = 10;
    return static_cast<int>(std::strtol(digits, nullptr, decimal));
}

}  // namespace Pegasus
