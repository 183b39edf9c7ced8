// SPDX-License-Identifier: MIT
// usbhcdiag clear
#include <algorithm>
#include <cstdint>
#include <iostream>
#include <set>
#include <string>
#include <utility>

#include "cli/Choice.h"
#include "cli/Diagnostics.h"
#include "cli/Note.h"
#include "cli/TerminalText.h"
#include "cli/ValueTexts.h"
#include "cli/commands/Commands.h"
#include "contract/Names.h"
#include "contract/TestState.h"
#include "wire/cimxml/StringConversion.h"

namespace usbhcdiag {
namespace {

using namespace Pegasus;
using contract::TestState;
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

std::string testOf(const CIMInstance& result) {
    return textOf(result, properties::diagnosticName);
}

/// By what clients tell a result from the others.
std::pair<std::string, std::string> keyOf(const CIMInstance& result) {
    return {testOf(result), textOf(result, properties::executionId)};
}

/// Why a result is still there.
std::string whyKept(const CIMInstance& result, const std::string& test) {
    const std::string element = withoutControls(textOf(result, properties::executionId));
    if (testOf(result) != test) {
        return "the result of " + withoutControls(testOf(result)) + " on " + element +
               " stays: ClearResults of " + withoutControls(test) + " removes its own alone";
    }
    if (numberOf(result, properties::testState) ==
        static_cast<std::uint16_t>(TestState::inProgress)) {
        return "the test on " + element + " is in progress, its result stays";
    }
    return "the result on " + element + " is there still, or again: the server says no reason";
}

}  // namespace

ExitStatus clearResults(Server& server, const Invocation& invocation) {
    Diagnostics diagnostics(server.client());
    const CIMInstance test = chooseTest(diagnostics.tests());
    const std::string testName = textOf(test, "Name");
    const auto elements = diagnostics.elements();
    const auto listed = chooseResults(diagnostics.results(), invocation.element);
    std::set<std::pair<std::string, std::string>> keys;
    std::set<std::string> filedUnder;
    for (Uint32 i = 0; i < listed.size(); ++i) {
        keys.insert(keyOf(listed[i]));
        if (testOf(listed[i]) == testName) {
            filedUnder.insert(textOf(listed[i], properties::executionId));
        }
    }
    for (const std::string& deviceId : filedUnder) {
        diagnostics.clear(test, elementOf(deviceId, elements));
    }
    // What is gone, not what was asked for; with nothing listed nothing was asked.
    std::size_t kept = 0;
    const auto left = keys.empty() ? Array<CIMInstance>() : diagnostics.results();
    for (Uint32 i = 0; i < left.size(); ++i) {
        if (keys.count(keyOf(left[i])) > 0) {
            note(whyKept(left[i], testName));
            ++kept;
        }
    }
    explainEmptyPrivateServer(server);
    std::cout << "removed: " << keys.size() - std::min(kept, keys.size()) << "\n";
    return kept == 0 ? exitSuccess : exitFailure;
}

}  // namespace usbhcdiag
