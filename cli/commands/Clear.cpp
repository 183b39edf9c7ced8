// SPDX-License-Identifier: MIT
// usbhcdiag clear
#include <iostream>
#include <set>

#include "cli/Choice.h"
#include "cli/Diagnostics.h"
#include "cli/TerminalText.h"
#include "cli/Values.h"
#include "cli/commands/Commands.h"
#include "contract/Names.h"
#include "wire/cimxml/StringConversion.h"

namespace usbhcdiag {
namespace {

using namespace Pegasus;
namespace properties = contract::properties;

/// The path of the element that results are filed under. It may be gone since; results are tied to
/// it by its DeviceID alone, so that a path with that one key does as well.
CIMObjectPath elementOf(const std::string& deviceId, const Array<CIMInstance>& elements) {
    for (Uint32 i = 0; i < elements.size(); ++i) {
        if (textOf(elements[i], properties::deviceId) == deviceId) {
            return elements[i].getPath();
        }
    }
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName(properties::deviceId), wire::fromUtf8(deviceId),
                              CIMKeyBinding::STRING));
    return CIMObjectPath(String(), CIMNamespaceName(), CIMName(contract::classes::managedElement),
                         keys);
}

}  // namespace

ExitStatus clearResults(Server& server, const Invocation& invocation) {
    Diagnostics diagnostics(server.client());
    const CIMInstance test = chooseTest(diagnostics.tests());
    const auto elements = diagnostics.elements();
    const auto results = chooseResults(diagnostics.results(), invocation.element);
    std::set<std::string> filedUnder;
    for (Uint32 i = 0; i < results.size(); ++i) {
        filedUnder.insert(textOf(results[i], properties::executionId));
    }
    Uint32 kept = 0;
    for (const std::string& deviceId : filedUnder) {
        const Uint32 keptHere = diagnostics.clear(test, elementOf(deviceId, elements));
        if (keptHere > 0) {
            std::cerr << "usbhcdiag: the test on " << withoutControls(deviceId)
                      << " is in progress, its result stays\n";
        }
        kept += keptHere;
    }
    explainEmptyPrivateServer(server);
    std::cout << "removed: " << results.size() - kept << "\n";
    return kept == 0 ? exitSuccess : exitFailure;
}

}  // namespace usbhcdiag
