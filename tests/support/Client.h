// SPDX-License-Identifier: MIT
// Sends requests to a provider object.
// One thread.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>

#include "tests/support/ObjectModelText.h"
#include "tests/support/RecordingHandler.h"

/// Sends requests to a provider object, which it owns, through the provider interfaces only.
/// Exceptions of the provider propagate.
class Client {
public:
    explicit Client(Pegasus::CIMBaseProvider* provider);

    Pegasus::CIMBaseProvider& provider() { return *provider_; }

    std::vector<Pegasus::CIMInstance> instances(const std::string& className);
    std::vector<std::string> names(const std::string& className);
    Pegasus::CIMInstance get(const Pegasus::CIMObjectPath& path);

    /// Invokes a method of the test of that name. Returns the value as text, empty if none was
    /// delivered.
    std::string invoke(const std::string& method,
                       const Pegasus::Array<Pegasus::CIMParamValue>& parameters,
                       const std::string& testName = "GetUsbDeviceInformation");
    std::string invokeOn(const Pegasus::CIMObjectPath& path, const std::string& method,
                         const Pegasus::Array<Pegasus::CIMParamValue>& parameters);

    void create();
    void modify();
    void remove();

    /// The handler calls of the last request, and the out-parameters of the last method as
    /// "name=value", followed by " (untyped)" if they are not marked as typed.
    const std::vector<std::string>& handlerCalls() const { return handlerCalls_; }
    const std::vector<std::string>& outParameters() const { return outParameters_; }

private:
    template <class Request>
    void send(std::vector<std::string>& calls, Request request);

    std::unique_ptr<Pegasus::CIMBaseProvider> provider_;
    std::vector<std::string> handlerCalls_;
    std::vector<std::string> outParameters_;
};
