// SPDX-License-Identifier: MIT
// usbhcdiag mof
#include <iostream>

#include "cli/Diagnostics.h"
#include "cli/Listing.h"
#include "cli/ValueTexts.h"
#include "cli/commands/Commands.h"
#include "contract/Names.h"

namespace usbhcdiag {

ExitStatus printMof(Server& server, const Invocation& /*invocation*/) {
    const auto objects = Diagnostics(server.client()).managedObjects();
    std::cout << "// What the USB diagnostics of this machine refer to.\n"
                 "// Load it where the classes are: cimmof -n "
              << contract::nameSpace << " FILE\n";
    for (Pegasus::Uint32 i = 0; i < objects.size(); ++i) {
        printDocument("\n" + mofOf(objects[i]));
    }
    return exitSuccess;
}

}  // namespace usbhcdiag
