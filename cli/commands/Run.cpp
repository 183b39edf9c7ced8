// SPDX-License-Identifier: MIT
// usbhcdiag run
#include <unistd.h>

#include <iostream>
#include <string>
#include <vector>

#include "cli/Choice.h"
#include "cli/Diagnostics.h"
#include "cli/Errors.h"
#include "cli/NothingRead.h"
#include "cli/Progress.h"
#include "cli/Terminal.h"
#include "cli/TerminalText.h"
#include "cli/Values.h"
#include "cli/commands/Commands.h"
#include "contract/Names.h"
#include "contract/TestState.h"

namespace usbhcdiag {
namespace {

using namespace Pegasus;
using contract::TestState;
namespace properties = contract::properties;

CIMInstance runWithProgress(Diagnostics& diagnostics, const CIMInstance& test,
                            const CIMInstance& element) {
    const Progress progress("running " + textOf(test, "Name") + " on " +
                            textOf(element, properties::deviceId));
    return diagnostics.run(test, element);
}

/// The report on standard output, one line of it per line. A terminal is spared the control
/// characters of device names; anything else gets them as they are.
void printReport(const std::vector<std::string>& lines) {
    const bool toTerminal = isTerminal(STDOUT_FILENO);
    for (const std::string& line : lines) {
        std::cout << (toTerminal ? withoutControls(line) : withoutLineFeeds(line)) << "\n";
    }
}

std::string nothingRead(const Server& server, const Invocation& invocation) {
    const PrivateServer* privateServer = server.privateServer();
    return privateServer == nullptr
               ? nothingReadAt(server.url())
               : nothingReadPrivately(deviceListPlaces(privateServer->process()),
                                      invocation.devices.value_or(""));
}

}  // namespace

ExitStatus runTest(Server& server, const Invocation& invocation) {
    Diagnostics diagnostics(server.client());
    const CIMInstance test = chooseTest(diagnostics.tests());
    const CIMInstance element = chooseElement(diagnostics.elements(), invocation.element, server);
    const CIMInstance result = runWithProgress(diagnostics, test, element);

    const auto lines = textsOf(result, properties::testResults);
    if (invocation.json) {
        std::cout << documentOf(result);
    } else {
        printReport(lines);
    }
    std::cout.flush();
    const auto state = numberOf(result, properties::testState);
    if (state != static_cast<std::uint16_t>(TestState::passed)) {
        throw Failure("the result on " + textOf(element, properties::deviceId) +
                      " did not pass: it is " +
                      (state.has_value() ? testStateText(*state) : "unknown"));
    }
    if (lines.empty()) {
        throw NothingRead(nothingRead(server, invocation));
    }
    return exitSuccess;
}

}  // namespace usbhcdiag
