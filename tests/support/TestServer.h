// SPDX-License-Identifier: MIT
// A CIM server of a few lines, as far as the provider library calls back into one.
// One thread.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <Pegasus/Provider/CIMOMConnection.h>
#include <Pegasus/Provider/CIMOMHandle.h>

/// Answers the calls of a provider from maps, writes them down, and throws at the one it is told to.
class TestServer : public Pegasus::CIMOMConnection {
public:
    /// One call of the provider: "enumerateInstanceNames NAMESPACE CLASS" or
    /// "getInstance NAMESPACE PATH", the latter with its flags.
    struct Call {
        std::string text;
        bool localOnly = false;
        bool includeQualifiers = false;
        bool includeClassOrigin = false;
        bool allProperties = true;
    };

    /// Adds an instance, which is enumerated under exactly this path and found by its class and
    /// keys.
    void add(const Pegasus::CIMObjectPath& path, const Pegasus::CIMInstance& instance);

    /// Adds an instance of a class with one string property, which is its key as well.
    void add(const char* className, const char* key, const char* value);

    /// Adds what the library expects of a server: the computer system "host1" and the software
    /// "usbhc-diagnostics".
    void addHost();

    /// Adds the managed element of that device ID.
    void addElement(const char* deviceId);

    const std::vector<Call>& calls() const { return calls_; }
    void forgetCalls() { calls_.clear(); }
    int unloadsRefused() const { return unloadsRefused_; }

    /// Called with the number of each call, from 1 on, before it is answered; it may throw.
    std::function<void(std::size_t)> beforeCall;

    Pegasus::Array<Pegasus::CIMObjectPath> enumerateInstanceNames(
        const Pegasus::OperationContext& context, const Pegasus::CIMNamespaceName& nameSpace,
        const Pegasus::CIMName& className) override;

    Pegasus::CIMInstance getInstance(const Pegasus::OperationContext& context,
                                     const Pegasus::CIMNamespaceName& nameSpace,
                                     const Pegasus::CIMObjectPath& instanceName,
                                     Pegasus::Boolean localOnly, Pegasus::Boolean includeQualifiers,
                                     Pegasus::Boolean includeClassOrigin,
                                     const Pegasus::CIMPropertyList& propertyList) override;

    void disallowProviderUnload() override;

private:
    void record(const Call& call, const Pegasus::CIMNamespaceName& nameSpace);

    struct Entry {
        Pegasus::CIMObjectPath path;
        Pegasus::CIMInstance instance;
    };
    std::map<std::string, std::vector<Entry>> classes_;
    std::vector<Call> calls_;
    int unloadsRefused_ = 0;
};
