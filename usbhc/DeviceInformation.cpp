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

// Used for every device, so they are made once.
const String productNameLabel = paddedLabel("Product Name ");
const String serialNumberLabel = paddedLabel("Serial Number ");
const String vendorNameLabel = paddedLabel("Vendor Name ");
const String vendorIdLabel = paddedLabel("Vendor ID ");
const String productIdLabel = paddedLabel("Product ID ");
const String revisionLabel = paddedLabel("Revision ");
const String usbSpecificationLabel = paddedLabel("USB Specification ");
const String interfaceNumberLabel = paddedLabel("Interface Number ");
const String interfaceClassLabel = paddedLabel("Interface Class ");
const String interfaceSubClassLabel = paddedLabel("Interface Sub Class ");
const String interfaceProtocolLabel = paddedLabel("Interface Protocol ");
const String portLabel = paddedLabel("Port on Device ");
const String driverLabel = paddedLabel("Device Driver ");
const String speedLabel = paddedLabel("Current Speed ");
const String currentDrawLabel = paddedLabel("Maximum Current Draw (mAmps) ");
const String endOfBlock("          ");

class Block {
public:
    explicit Block(const std::function<void(String)>& useLine) : useLine_(useLine) {}

    void line(const String& label, const String& value) { useLine_(label + value); }
    void line(const String& label, const std::string& value) { line(label, textFromBytes(value)); }
    void end() { useLine_(endOfBlock); }

private:
    const std::function<void(String)>& useLine_;
};

void addCodeLines(Block& block, const Interface& interface) {
    const Code classCode = codeOf(interface.getClass());
    const Code subClassCode = classCode ? codeOf(interface.getSubClass()) : Code();
    const Code protocolCode = classCode ? codeOf(interface.getProtocol()) : Code();

    block.line(interfaceClassLabel,
               classCode ? nameOf(ZORVA_UsbHcBundle::getClass(*classCode)) : String());
    block.line(interfaceSubClassLabel,
               subClassCode ? nameOf(ZORVA_UsbHcBundle::getSubClass(*classCode, *subClassCode))
                            : String());
    const char* protocol =
        protocolCode ? ZORVA_UsbHcBundle::getProtocol(*classCode, *protocolCode) : nullptr;
    if (protocol != nullptr) {
        block.line(interfaceProtocolLabel, nameOf(protocol));
    }
}

}  // namespace

void forEachReportLine(const UsbDevice& device, const std::function<void(String)>& useLine) {
    const deviceInfo& strings = *device.getDeviceInfo();
    const product& identifiers = *device.getProduct();
    const Interface& interface = *device.getInterface();

    Block block(useLine);
    block.line(productNameLabel, strings.getproduct());
    block.line(serialNumberLabel, strings.getserial());
    block.line(vendorNameLabel, strings.getmanufacturer());
    block.line(vendorIdLabel, identifiers.getVendor());
    block.line(productIdLabel, identifiers.getProduct());
    block.line(revisionLabel, identifiers.getRevision());
    block.line(usbSpecificationLabel, device.getDescriptor()->getVersion());
    block.line(interfaceNumberLabel, interface.getInterface());
    addCodeLines(block, interface);
    block.line(portLabel, device.getTopology()->getPort());
    block.line(driverLabel, interface.getDriver());
    block.line(speedLabel, device.getTopology()->getSpeed());
    block.line(currentDrawLabel, device.getConfiguration()->getPower());
    block.end();
}

}  // namespace Pegasus
