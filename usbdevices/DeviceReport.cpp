// SPDX-License-Identifier: MIT
#include "usbdevices/DeviceReport.h"

#include <iomanip>
#include <limits>
#include <string>

#include "usbhc/ZORVA_UsbHcBundle.h"

namespace {

using Bundle = Pegasus::ZORVA_UsbHcBundle;

/// A field of a device that must be a number, and what names it in a message.
struct NumberField {
    const UsbDevice& device;
    std::size_t position;  ///< of the device in the list, from 1
    const char* name;
    std::string text;
};

int numberOf(const NumberField& field) {
    try {
        return Bundle::getIntValue(field.text);
    } catch (const std::out_of_range&) {
        throw EmptyFieldError("device " + std::to_string(field.position) + " of the list, \"" +
                              field.device.getDeviceInfo()->getproduct() + "\", has no " +
                              field.name);
    }
}

void printLine(std::ostream& out, const char* label, const std::string& value) {
    constexpr int labelWidth = 30;
    out << std::left << std::setw(labelWidth) << label << value << '\n';
}

void printName(std::ostream& out, const char* label, const char* name) {
    printLine(out, label, name == nullptr ? "" : name);
}

void printBlock(std::ostream& out, const UsbDevice& device, std::size_t position) {
    const deviceInfo& strings = *device.getDeviceInfo();
    const product& identifiers = *device.getProduct();
    const Interface& interface = *device.getInterface();

    printLine(out, "Product Name ", strings.getproduct());
    printLine(out, "Serial Number ", strings.getserial());
    printLine(out, "Vendor ID ", identifiers.getVendor());
    printLine(out, "Product ID ", identifiers.getProduct());
    printLine(out, "Revision ", identifiers.getRevision());
    printLine(out, "USB Specification ", device.getDescriptor()->getVersion());
    printLine(out, "Interface Number ", interface.getInterface());

    const int classCode = numberOf({device, position, "interface class", interface.getClass()});
    printName(out, "Interface Class ", Bundle::getClass(classCode));
    const int subClassCode =
        numberOf({device, position, "interface subclass", interface.getSubClass()});
    printName(out, "Interface Sub Class ", Bundle::getSubClass(classCode, subClassCode));
    const int protocolCode =
        numberOf({device, position, "interface protocol", interface.getProtocol()});
    if (const char* name = Bundle::getProtocol(classCode, protocolCode)) {
        printName(out, "Interface Protocol ", name);
    }

    printLine(out, "Port on Device ", device.getTopology()->getPort());
    printLine(out, "Device Driver ", interface.getDriver());
    printLine(out, "Current Speed ", device.getTopology()->getSpeed());
    printLine(out, "Maximum Current Draw (mAmps) ", device.getConfiguration()->getPower());
    out << '\n';
}

/// Whether `level` is the next one below `hubLevel`; there is none below the greatest number.
bool isLevelBelow(int level, int hubLevel) {
    return hubLevel < std::numeric_limits<int>::max() && level == hubLevel + 1;
}

}  // namespace

void printDeviceReport(std::ostream& out, std::queue<UsbDevice>& devices) {
    int ohciLevel = 0;
    const std::size_t count = devices.size();
    for (std::size_t position = 1; position <= count; ++position) {
        const UsbDevice device = devices.front();
        devices.pop();
        devices.push(device);

        const bool isOhciRootHub = device.getDeviceInfo()->getUsbHost() == "OHCI";
        const int level = numberOf({device, position, "level", device.getTopology()->getLevel()});
        if (isOhciRootHub) {
            ohciLevel = level;
            out << " level is " << ohciLevel << '\n';
        }
        if (isOhciRootHub || isLevelBelow(level, ohciLevel)) {
            printBlock(out, device, position);
        }
    }
}
