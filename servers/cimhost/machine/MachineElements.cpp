// SPDX-License-Identifier: MIT
#include "servers/cimhost/machine/MachineElements.h"

#include <unistd.h>

#include <array>

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMValue.h>

#include "contract/Names.h"
#include "pegasus/model/HostName.h"

namespace cimhost {

namespace {

using Pegasus::CIMInstance;
using Pegasus::CIMName;
using Pegasus::CIMProperty;
using Pegasus::CIMValue;
using Pegasus::String;
namespace classes = contract::classes;

// SoftwareElementState and TargetOperatingSystem of the common model.
constexpr Pegasus::Uint16 stateRunning = 3;
constexpr Pegasus::Uint16 systemLinux = 36;

void addText(CIMInstance& instance, const char* name, const std::string& text) {
    instance.addProperty(CIMProperty(CIMName(name), CIMValue(String(text.c_str()))));
}

CIMInstance computerSystem(const std::string& hostName) {
    CIMInstance system{CIMName(classes::computerSystem)};
    addText(system, "CreationClassName", classes::computerSystem);
    addText(system, "Name", hostName);
    addText(system, "Caption", "Computer system");
    return system;
}

CIMInstance hostController(const std::string& hostName, const std::string& deviceId) {
    CIMInstance controller{CIMName(classes::managedElement)};
    addText(controller, "SystemCreationClassName", classes::computerSystem);
    addText(controller, "SystemName", hostName);
    addText(controller, "CreationClassName", classes::managedElement);
    addText(controller, contract::properties::deviceId, deviceId);
    addText(controller, "Caption", "USB host controller");
    addText(controller, "ElementName", "USB host controller " + deviceId);
    return controller;
}

CIMInstance testSoftware() {
    CIMInstance software{CIMName(classes::testSoftware)};
    addText(software, "Name", "ZORVA USB diagnostics");
    addText(software, "Version", ZORVA_VERSION);
    addText(software, "SoftwareElementID", std::string("lib") + contract::provider);
    software.addProperty(CIMProperty(CIMName("SoftwareElementState"), CIMValue(stateRunning)));
    software.addProperty(CIMProperty(CIMName("TargetOperatingSystem"), CIMValue(systemLinux)));
    addText(software, "Caption", "Provider of USB diagnostics");
    return software;
}

}  // namespace

std::vector<std::string> addMachineElements(const Schema& schema, Repository& repository,
                                            const Pegasus::CIMNamespaceName& nameSpace,
                                            const std::string& hostName,
                                            const std::vector<std::string>& deviceIds) {
    std::vector<CIMInstance> elements = {computerSystem(hostName), testSoftware()};
    for (const std::string& deviceId : deviceIds) {
        elements.push_back(hostController(hostName, deviceId));
    }
    std::vector<std::string> missing;
    for (const char* const name :
         {classes::computerSystem, classes::managedElement, classes::testSoftware}) {
        if (schema.findClass(nameSpace, CIMName(name)) == nullptr) {
            missing.emplace_back(name);
        }
    }
    for (const CIMInstance& element : elements) {
        if (schema.findClass(nameSpace, element.getClassName()) != nullptr) {
            repository.createInstance(nameSpace, element);
        }
    }
    return missing;
}

std::string shortHostName() {
    std::array<char, 256> name{};
    if (::gethostname(name.data(), name.size() - 1) != 0) {
        return "localhost";
    }
    return shortHostName(name.data());
}

std::string shortHostName(const std::string& fullName) {
    const std::string shortName = fullName.substr(0, fullName.find('.'));
    return Pegasus::isHostName(String(shortName.c_str())) ? shortName : "localhost";
}

}  // namespace cimhost
