// SPDX-License-Identifier: MIT
#include "cli/Choice.h"

#include "cli/Errors.h"
#include "cli/Note.h"
#include "cli/NothingRead.h"
#include "cli/TerminalText.h"
#include "cli/ValueTexts.h"
#include "contract/Names.h"

namespace usbhcdiag {
namespace {

using namespace Pegasus;

std::string noInstanceOf(const std::string& className) {
    return "no instance of " + className + " in " + contract::nameSpace;
}

std::string noElementAt(const std::string& url) {
    return "the server at " + url + " knows no USB host controller (" +
           noInstanceOf(contract::classes::managedElement) +
           ").\nOpenPegasus is given this machine's by `usbhcdiag mof`.";
}

[[noreturn]] void failWithoutElements(const Server& server) {
    if (const PrivateServer* privateServer = server.privateServer()) {
        throw NothingRead("nothing was read: " +
                          noHostController(deviceListPlaces(privateServer->process())));
    }
    throw Failure(noElementAt(server.url()));
}

}  // namespace

CIMInstance chooseTest(const Array<CIMInstance>& tests) {
    if (tests.size() == 0) {
        throw Failure("the server offers no test (" + noInstanceOf(contract::classes::test) +
                      "): is the provider registered?");
    }
    return tests[0];
}

CIMInstance chooseElement(const Array<CIMInstance>& elements,
                          const std::optional<std::string>& deviceId, const Server& server) {
    if (elements.size() == 0) {
        failWithoutElements(server);
    }
    if (!deviceId.has_value()) {
        return elements[0];
    }
    std::string known;
    for (Uint32 i = 0; i < elements.size(); ++i) {
        const std::string id = textOf(elements[i], contract::properties::deviceId);
        if (id == *deviceId) {
            return elements[i];
        }
        known += "\n    " + withoutControls(id);
    }
    throw Failure("there is no host controller with the DeviceID \"" + *deviceId +
                  "\". There is:" + known);
}

Array<CIMInstance> chooseResults(const Array<CIMInstance>& results,
                                 const std::optional<std::string>& deviceId) {
    Array<CIMInstance> chosen;
    for (Uint32 i = 0; i < results.size(); ++i) {
        if (!deviceId.has_value() ||
            textOf(results[i], contract::properties::executionId) == *deviceId) {
            chosen.append(results[i]);
        }
    }
    return chosen;
}

void explainMissingElements(const Server& server) {
    note(server.privateServer() == nullptr
             ? noElementAt(server.url())
             : noHostController(deviceListPlaces(server.privateServer()->process())));
}

void explainEmptyPrivateServer(const Server& server) {
    if (server.privateServer() != nullptr) {
        note("a private server has no results yet; --server URL asks another");
    }
}

}  // namespace usbhcdiag
