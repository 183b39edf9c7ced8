// SPDX-License-Identifier: MIT
// Which test, element and results of a server a command is about.
//
// Main thread only, as all that the commands are made of.
#pragma once

#include <optional>
#include <string>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>

#include "cli/Server.h"

namespace usbhcdiag {

/// The test to run: the first, since the provider offers one. Throws Failure if there is none.
Pegasus::CIMInstance chooseTest(const Pegasus::Array<Pegasus::CIMInstance>& tests);

/// The element with that DeviceID, or the first. Throws Failure with the DeviceIDs that there are;
/// if there is none at all, Failure, or NothingRead if a private server found none.
Pegasus::CIMInstance chooseElement(const Pegasus::Array<Pegasus::CIMInstance>& elements,
                                   const std::optional<std::string>& deviceId,
                                   const Server& server);

/// The results that are filed under that DeviceID ("ExecutionID"), or all.
Pegasus::Array<Pegasus::CIMInstance> chooseResults(
    const Pegasus::Array<Pegasus::CIMInstance>& results,
    const std::optional<std::string>& deviceId);

/// Says on standard error that there is no host controller, and what to do about it.
void explainMissingElements(const Server& server);

/// Says on standard error why a private server has no results; nothing for another server.
void explainEmptyPrivateServer(const Server& server);

}  // namespace usbhcdiag
