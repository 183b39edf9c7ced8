// SPDX-License-Identifier: MIT
#include "servers/cimhost/program/Host.h"

#include "contract/Names.h"
#include "servers/cimhost/loading/ServedClasses.h"
#include "servers/cimhost/machine/MachineElements.h"
#include "servers/cimhost/mof/MofReader.h"
#include "servers/cimhost/operations/HostConnection.h"

namespace cimhost {

Host::Host(const HostSettings& settings)
    : repository_(schema_),
      dispatcher_(schema_, repository_, routes_, Pegasus::String(settings.hostName.c_str())) {
    const Pegasus::CIMNamespaceName nameSpace(contract::nameSpace);
    MofReader reader(schema_, repository_);
    for (const std::string& file : settings.mofFiles) {
        reader.readFile(file, nameSpace);
    }
    missingClasses_ =
        addMachineElements(schema_, repository_, nameSpace, settings.hostName, settings.deviceIds);
    library_ = std::make_unique<ProviderLibrary>(settings.providerLibrary);
    provider_ = std::make_unique<serving::ServedProvider>(
        library_->createProvider(contract::provider), locks_,
        std::make_shared<HostConnection>(dispatcher_));
    for (const ServedClass& served : servedClasses) {
        routes_.add(nameSpace, Pegasus::CIMName(served.name), served.methods, *provider_);
    }
}

Host::~Host() = default;

bool Host::terminate(std::chrono::milliseconds patience) {
    return provider_->terminate(patience);
}

}  // namespace cimhost
