// SPDX-License-Identifier: MIT
// Fuzzes the server behind its protocol: bytes as the body of a request, answered by the dispatcher with the
// classes, the repository and the library of an installation. A refusal is an outcome; what is answered must
// be a document that the client understands. No exception but XmlError leaves the codec and the operations:
// in the server it would be 500, here it ends the program.
#include <dlfcn.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>

#include "contract/Names.h"
#include "fuzz/AnswerRequest.h"
#include "fuzz/PrivateView.h"
#include "servers/cimhost/program/Host.h"
#include "tests/support/Parameters.h"
#include "tests/support/PrivateDeviceList.h"

namespace {

using namespace cimhost;

/// Later inputs meet what earlier ones have left, but not that of thousands.
constexpr int inputsPerHost = 500;

std::string deviceList;

std::unique_ptr<Host> makeHost() {
    PrivateDeviceList::show(deviceList);
    HostSettings settings;
    settings.mofFiles = {ZORVA_MOF};
    settings.providerLibrary = ZORVA_LIBRARY;
    settings.hostName = "host1";
    settings.deviceIds = {"usb1", "usb2"};
    return std::make_unique<Host>(settings);
}

Pegasus::String keyOf(const Pegasus::CIMObjectPath& path, const char* name) {
    for (Pegasus::Uint32 i = 0; i < path.getKeyBindings().size(); ++i) {
        if (path.getKeyBindings()[i].getName().equal(Pegasus::CIMName(name))) {
            return path.getKeyBindings()[i].getValue();
        }
    }
    return {};
}

/// The results outlive the host, with the library.
void clearResults(Operations& operations) {
    using namespace Pegasus;
    const CIMNamespaceName nameSpace(contract::nameSpace);
    const auto names =
        operations.enumerateInstanceNames(nameSpace, CIMName(contract::classes::result));
    for (Uint32 i = 0; i < names.size(); ++i) {
        Array<CIMKeyBinding> keys;
        keys.append(CIMKeyBinding(CIMName("Name"), keyOf(names[i], "DiagnosticName"),
                                  CIMKeyBinding::STRING));
        const CIMObjectPath test(String(), nameSpace, CIMName(contract::classes::test), keys);
        keys[0] = CIMKeyBinding(CIMName(contract::properties::deviceId),
                                keyOf(names[i], "ExecutionID"), CIMKeyBinding::STRING);
        const CIMObjectPath element(String(), nameSpace, CIMName(contract::classes::managedElement),
                                    keys);
        operations.invokeMethod(nameSpace, test, CIMName(contract::methods::clearResults),
                                parameter(contract::parameters::systemElement, CIMValue(element)));
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    enterPrivateView(*argc, *argv);
    std::ifstream sample(ZORVA_SAMPLE, std::ios::binary);
    deviceList.assign(std::istreambuf_iterator<char>(sample), {});
    // What the library prints, and its counters, which are not to go with a host.
    std::cout.rdbuf(nullptr);
    if (dlopen(ZORVA_LIBRARY, RTLD_NOW | RTLD_GLOBAL) == nullptr) {
        std::cerr << dlerror() << '\n';
        std::abort();
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static std::unique_ptr<Host> host = makeHost();
    static int inputs = 0;
    if (++inputs % inputsPerHost == 0) {
        clearResults(host->operations());
        host->terminate(std::chrono::seconds(20));
        host = makeHost();
    }
    answerRequest(std::string(reinterpret_cast<const char*>(data), size), host->operations());
    return 0;
}
