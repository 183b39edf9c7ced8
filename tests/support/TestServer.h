// SPDX-License-Identifier: MIT
// A minimal CIM server with the operations that the provider library calls back.
// One thread.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <Pegasus/Provider/CIMOMConnection.h>
#include <Pegasus/Provider/CIMOMHandle.h>

/// Answers the calls of a provider from maps and records them. `beforeCall` can make calls throw.
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

    /// Adds an instance. It is enumerated with exactly this path and found by class and keys.
    void add(const Pegasus::CIMObjectPath& path, const Pegasus::CIMInstance& instance);

    /// Adds an instance of a class with one string property, which is also its key.
    void add(const char* className, const char* key, const char* value);

    /// Adds the instances that the library expects on every server: the computer system "host1" and
    /// the software "usbhc-diagnostics".
    void addHost();

    /// Adds the managed element with that device ID.
    void addElement(const char* deviceId);

    const std::vector<Call>& calls() const { return calls_; }
    void forgetCalls() { calls_.clear(); }
    /// How often disallowProviderUnload() was called.
    int unloadsDisallowed() const { return unloadsDisallowed_; }

    /// Called before each call is answered, with the number of the call, from 1, or 0 for
    /// disallowProviderUnload(). May throw.
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
    int unloadsDisallowed_ = 0;
};
