// SPDX-License-Identifier: MIT
#include "usbhc/DeviceInformation.h"

#include <optional>

#include "diag/DeviceText.h"
#include "usbhc/ZORVA_UsbHcBundle.h"

namespace Pegasus {
namespace {

using Code = std::optional<int>;

Code codeOf(const std::string& text) {
    return text.empty() ? Code() : Code(ZORVA_UsbHcBundle::getIntValue(text));
}

String nameOf(const char* text) {
    return text == nullptr ? String() : textFromBytes(text);
}

String paddedLabel(const char* label) {
    constexpr Uint32 width = 30;
    String padded(label);
    while (padded.size() < width) {
        padded.append(Char16(' '));
    }
    return padded;
}

// Every device needs them all, so they are made once.
const String PRODUCT_NAME = paddedLabel("Product Name ");
const String SERIAL_NUMBER = paddedLabel("Serial Number ");
const String VENDOR_NAME = paddedLabel("Vendor Name ");
const String VENDOR_ID = paddedLabel("Vendor ID ");
const String PRODUCT_ID = paddedLabel("Product ID ");
const String REVISION = paddedLabel("Revision ");
const String USB_SPECIFICATION = paddedLabel("USB Specification ");
const String INTERFACE_NUMBER = paddedLabel("Interface Number ");
const String INTERFACE_CLASS = paddedLabel("Interface Class ");
const String INTERFACE_SUB_CLASS = paddedLabel("Interface Sub Class ");
const String INTERFACE_PROTOCOL = paddedLabel("Interface Protocol ");
const String PORT_ON_DEVICE = paddedLabel("Port on Device ");
const String DEVICE_DRIVER = paddedLabel("Device Driver ");
const String CURRENT_SPEED = paddedLabel("Current Speed ");
const String MAXIMUM_CURRENT_DRAW = paddedLabel("Maximum Current Draw (mAmps) ");
const String END_OF_BLOCK("          ");

class Block {
public:
    explicit Block(const std::function<void(String)>& writeLine) : writeLine_(writeLine) {}

    void line(const String& label, const String& value) { writeLine_(label + value); }
    void line(const String& label, const std::string& value) { line(label, textFromBytes(value)); }
    void end() { writeLine_(END_OF_BLOCK); }

private:
    const std::function<void(String)>& writeLine_;
};

void reportCodes(Block& block, const Interface& interface) {
    const Code classCode = codeOf(interface.getClass());
    const Code subClassCode = classCode ? codeOf(interface.getSubClass()) : Code();
    const Code protocolCode = classCode ? codeOf(interface.getProtocol()) : Code();

    block.line(INTERFACE_CLASS,
               classCode ? nameOf(ZORVA_UsbHcBundle::getClass(*classCode)) : String());
    block.line(INTERFACE_SUB_CLASS,
               subClassCode ? nameOf(ZORVA_UsbHcBundle::getSubClass(*classCode, *subClassCode))
                            : String());
    const char* protocol =
        protocolCode ? ZORVA_UsbHcBundle::getProtocol(*classCode, *protocolCode) : nullptr;
    if (protocol != nullptr) {
        block.line(INTERFACE_PROTOCOL, nameOf(protocol));
    }
}

}  // namespace

void reportDevice(const UsbDevice& device, const std::function<void(String)>& writeLine) {
    const deviceInfo& strings = *device.getDeviceInfo();
    const product& identifiers = *device.getProduct();
    const Interface& interface = *device.getInterface();

    Block block(writeLine);
    block.line(PRODUCT_NAME, strings.getproduct());
    block.line(SERIAL_NUMBER, strings.getserial());
    block.line(VENDOR_NAME, strings.getmanufacturer());
    block.line(VENDOR_ID, identifiers.getVendor());
    block.line(PRODUCT_ID, identifiers.getProduct());
    block.line(REVISION, identifiers.getRevision());
    block.line(USB_SPECIFICATION, device.getDescriptor()->getVersion());
    block.line(INTERFACE_NUMBER, interface.getInterface());
    reportCodes(block, interface);
    block.line(PORT_ON_DEVICE, device.getTopology()->getPort());
    block.line(DEVICE_DRIVER, interface.getDriver());
    block.line(CURRENT_SPEED, device.getTopology()->getSpeed());
    block.line(MAXIMUM_CURRENT_DRAW, device.getConfiguration()->getPower());
    block.end();
}

}  // namespace Pegasus
