// SPDX-License-Identifier: MIT
// usbhcdiag elements
#include "cli/Choice.h"
#include "cli/Diagnostics.h"
#include "cli/Listing.h"
#include "cli/commands/Commands.h"
#include "contract/Names.h"

namespace usbhcdiag {

ExitStatus listElements(Server& server, const Invocation& invocation) {
    const auto elements = Diagnostics(server.client()).elements();
    print(elements, {{"DEVICEID", contract::properties::deviceId}, {"NAME", "ElementName"}},
          invocation.json);
    if (elements.size() == 0) {
        explainMissingElements(server);
    }
    return exitSuccess;
}

}  // namespace usbhcdiag
