// SPDX-License-Identifier: MIT
// What the device information test reports of a device.
#include "usbhc/DeviceInformation.h"

#include "usbhc/ZORVA_UsbHcBundle.h"

#include <optional>

namespace Pegasus {
namespace {

using Code = std::optional<int>;

Code codeOf(const std::string& text) {
    return text.empty() ? Code() : Code(ZORVA_UsbHcBundle::getIntValue(text));
}

std::string textOf(const char* name) {
    return name == nullptr ? std::string() : std::string(name);
}

// Builds the lines of a block in one buffer.
class Block {
public:
    explicit Block(const std::function<void(const std::string&)>& writeLine)
        : writeLine_(writeLine) {}

    void line(const char* label, const std::string& value) {
        constexpr size_t labelWidth = 30;
        buffer_ = label;
        buffer_.resize(labelWidth, ' ');
        buffer_ += value;
        writeLine_(buffer_);
    }

    void end() { writeLine_("          "); }

private:
    const std::function<void(const std::string&)>& writeLine_;
    std::string buffer_;
};

void reportCodes(Block& block, const Interface& interface) {
    const Code classCode = codeOf(interface.getClass());
    const Code subClassCode = classCode ? codeOf(interface.getSubClass()) : Code();
    const Code protocolCode = classCode ? codeOf(interface.getProtocol()) : Code();

    block.line("Interface Class ",
               classCode ? textOf(ZORVA_UsbHcBundle::getClass(*classCode)) : std::string());
    block.line("Interface Sub Class ",
               subClassCode ? textOf(ZORVA_UsbHcBundle::getSubClass(*classCode, *subClassCode))
                            : std::string());
    const char* protocol =
        protocolCode ? ZORVA_UsbHcBundle::getProtocol(*classCode, *protocolCode) : nullptr;
    if (protocol != nullptr) {
        block.line("Interface Protocol ", protocol);
    }
}

}  // namespace

void reportDevice(const UsbDevice& device,
                  const std::function<void(const std::string&)>& writeLine) {
    const deviceInfo& strings = *device.getDeviceInfo();
    const product& identifiers = *device.getProduct();
    const Interface& interface = *device.getInterface();

    Block block(writeLine);
    block.line("Product Name ", strings.getproduct());
    block.line("Serial Number ", strings.getserial());
    block.line("Vendor Name ", strings.getmanufacturer());
    block.line("Vendor ID ", identifiers.getVendor());
    block.line("Product ID ", identifiers.getProduct());
    block.line("Revision ", identifiers.getRevision());
    block.line("USB Specification ", device.getDescriptor()->getVersion());
    block.line("Interface Number ", interface.getInterface());
    reportCodes(block, interface);
    block.line("Port on Device ", device.getTopology()->getPort());
    block.line("Device Driver ", interface.getDriver());
    block.line("Current Speed ", device.getTopology()->getSpeed());
    block.line("Maximum Current Draw (mAmps) ", device.getConfiguration()->getPower());
    block.end();
}

}  // namespace Pegasus
