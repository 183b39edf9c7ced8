// SPDX-License-Identifier: MIT
// usbhcdiag tests
#include "cli/Diagnostics.h"
#include "cli/Listing.h"
#include "cli/commands/Commands.h"

namespace usbhcdiag {

ExitStatus listTests(Server& server, const Invocation& invocation) {
    print(Diagnostics(server.client()).tests(),
          {{"NAME", "Name"}, {"CAPTION", "Caption"}, {"SYSTEM", "SystemName"}}, invocation.json);
    return exitSuccess;
}

}  // namespace usbhcdiag
