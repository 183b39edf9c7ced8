// SPDX-License-Identifier: MIT
// All of the host but the protocol, put together: classes, instances, the provider, the operations.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "servers/cimhost/loading/ProviderLibrary.h"
#include "servers/cimhost/operations/Dispatcher.h"
#include "servers/cimhost/operations/ProviderRoutes.h"
#include "servers/cimhost/repository/Repository.h"
#include "servers/cimhost/schema/Schema.h"
#include "servers/serving/ProviderLocks.h"
#include "servers/serving/ServedProvider.h"

namespace cimhost {

/// What a host is made of.
struct HostSettings {
    std::vector<std::string> mofFiles;
    std::string providerLibrary;
    std::string hostName;                ///< of this machine, without domain
    std::vector<std::string> deviceIds;  ///< of the USB host controllers
};

/// A host that serves. One thread makes and ends it; operations() may be used by any number.
class Host {
public:
    /// Reads the MOF files, makes the elements of the machine and loads the provider. Throws
    /// MofError, ProviderLibraryError, Pegasus::Exception or std::exception with what is wrong.
    explicit Host(const HostSettings& settings);
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    ~Host();

    Operations& operations() { return dispatcher_; }

    /// Classes of the machine's elements that the MOF files do not have.
    const std::vector<std::string>& missingClasses() const { return missingClasses_; }

    /// Refuses further provider requests and ends the provider. Returns false if a request is still
    /// inside after `patience` (its device list may be wedged); then neither this object nor the
    /// library may be given up before the process ends.
    bool terminate(std::chrono::milliseconds patience);

private:
    Schema schema_;
    Repository repository_;
    ProviderRoutes routes_;
    Dispatcher dispatcher_;
    std::vector<std::string> missingClasses_;
    std::unique_ptr<ProviderLibrary> library_;
    serving::ProviderLocks locks_;
    std::unique_ptr<serving::ServedProvider> provider_;
};

}  // namespace cimhost
