// SPDX-License-Identifier: MIT
// usbhcdiag elements
#include "cli/Diagnostics.h"
#include "cli/Listing.h"
#include "cli/commands/Commands.h"
#include "contract/Names.h"

namespace usbhcdiag {

ExitStatus listElements(Server& server, const Invocation& invocation) {
    print(Diagnostics(server.client()).elements(),
          {{"DEVICEID", contract::properties::deviceId}, {"NAME", "ElementName"}}, invocation.json);
    return exitSuccess;
}

}  // namespace usbhcdiag
