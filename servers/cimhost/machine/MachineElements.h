// SPDX-License-Identifier: MIT
// The elements of this machine that the diagnostics are about, as instances of the repository.
//
// Functions without state; any thread may call them.
#pragma once

#include <string>
#include <vector>

#include <Pegasus/Common/CIMName.h>

#include "servers/cimhost/repository/Repository.h"
#include "servers/cimhost/schema/Schema.h"

namespace cimhost {

/// Makes one QUIRVO_ComputerSystem named `hostName`, one ZORVA_UsbHc with each of the DeviceIDs, and
/// one ZORVA_UsbHc_TestSoftware of this project's version. Classes that the schema does not have
/// are skipped and returned. Throws CIMException if a class does not have the properties.
std::vector<std::string> addMachineElements(const Schema& schema, Repository& repository,
                                            const Pegasus::CIMNamespaceName& nameSpace,
                                            const std::string& hostName,
                                            const std::vector<std::string>& deviceIds);

/// The name of this machine, up to its first dot.
std::string shortHostName();

/// A host's name up to its first dot; "localhost" where object paths cannot carry that (a machine
/// that nobody named is called "(none)").
std::string shortHostName(const std::string& fullName);

}  // namespace cimhost
