// SPDX-License-Identifier: MIT
// The diagnostics model as a client meets it: tests, the elements that they test, and results.
#pragma once

#include <cstdint>
#include <string>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>

#include "wire/client/CimClient.h"

namespace usbhcdiag {

/// What "TestState" says, for people; other values by their number.
std::string testStateText(std::uint16_t state);

/// What a return code of "RunTest" or "ClearResults" says, for people.
std::string returnCodeText(std::uint32_t code);

/// Reads and runs the diagnostics of one server. One thread at a time.
///
/// Every operation throws what CimClient throws, and Failure where the server's answer makes no
/// sense.
class Diagnostics {
public:
    explicit Diagnostics(wire::CimClient& client) : client_(client) {}

    Pegasus::Array<Pegasus::CIMInstance> tests();
    Pegasus::Array<Pegasus::CIMInstance> elements();
    Pegasus::Array<Pegasus::CIMInstance> results();

    /// Everything that a run refers to: the computer system, the host controllers, the software.
    Pegasus::Array<Pegasus::CIMInstance> managedObjects();

    /// Runs `test` on `element` and returns its result. A "RunTest" that answers with a code other
    /// than 0 is a Failure.
    Pegasus::CIMInstance run(const Pegasus::CIMInstance& test, const Pegasus::CIMInstance& element);

    /// Removes the results of `test` that are filed under the element of that path, all but those whose
    /// test is in progress.
    void clear(const Pegasus::CIMInstance& test, const Pegasus::CIMObjectPath& element);

private:
    wire::MethodResult invoke(const Pegasus::CIMInstance& test, const char* method,
                              const Pegasus::CIMObjectPath& element);
    Pegasus::Array<Pegasus::CIMInstance> instances(const char* className);

    wire::CimClient& client_;
};

}  // namespace usbhcdiag
