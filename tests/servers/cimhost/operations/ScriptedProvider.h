// SPDX-License-Identifier: MIT
// A provider whose answers a test writes down.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <Pegasus/Common/Exception.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>

namespace cimhost {

/// Serves the instances that the test put into it, class by class, and passes methods to a function.
class ScriptedProvider : public Pegasus::CIMInstanceProvider, public Pegasus::CIMMethodProvider {
public:
    /// What the provider does, kept by the test: the host deletes the provider itself.
    struct Script {
        std::map<std::string, std::vector<Pegasus::CIMInstance>> instances;
        std::map<std::string, Pegasus::CIMStatusCode> enumerationErrors;
        std::function<void(Pegasus::CIMOMHandle&, const Pegasus::String& method,
                           const Pegasus::Array<Pegasus::CIMParamValue>& in,
                           Pegasus::Array<Pegasus::CIMParamValue>& out,
                           Pegasus::ResponseHandler<Pegasus::CIMValue>& handler)>
            method;
        std::vector<std::string> pathsSeen;
    };

    explicit ScriptedProvider(Script& script) : script_(script) {}

    void initialize(Pegasus::CIMOMHandle& cimom) override { cimom_ = cimom; }
    void terminate() override {}

    void getInstance(const Pegasus::OperationContext& /*context*/,
                     const Pegasus::CIMObjectPath& ref, Pegasus::Uint32 /*flags*/,
                     const Pegasus::CIMPropertyList& /*propertyList*/,
                     Pegasus::ResponseHandler<Pegasus::CIMInstance>& handler) override {
        see(ref);
        handler.processing();
        for (const Pegasus::CIMInstance& instance : instancesOf(ref)) {
            const Pegasus::CIMObjectPath bare(Pegasus::String(), Pegasus::CIMNamespaceName(),
                                              ref.getClassName(), ref.getKeyBindings());
            if (instance.getPath() == bare) {
                handler.deliver(instance.clone());
                handler.complete();
                return;
            }
        }
        throw Pegasus::CIMException(Pegasus::CIM_ERR_NOT_FOUND, "scripted");
    }

    void enumerateInstances(const Pegasus::OperationContext& /*context*/,
                            const Pegasus::CIMObjectPath& ref, Pegasus::Uint32 /*flags*/,
                            const Pegasus::CIMPropertyList& /*propertyList*/,
                            Pegasus::ResponseHandler<Pegasus::CIMInstance>& handler) override {
        see(ref);
        handler.processing();
        failIfScripted(ref);
        for (const Pegasus::CIMInstance& instance : instancesOf(ref)) {
            handler.deliver(instance.clone());
        }
        handler.complete();
    }

    void enumerateInstanceNames(
        const Pegasus::OperationContext& /*context*/, const Pegasus::CIMObjectPath& ref,
        Pegasus::ResponseHandler<Pegasus::CIMObjectPath>& handler) override {
        see(ref);
        handler.processing();
        failIfScripted(ref);
        for (const Pegasus::CIMInstance& instance : instancesOf(ref)) {
            handler.deliver(instance.getPath());
        }
        handler.complete();
    }

    void modifyInstance(const Pegasus::OperationContext& /*context*/,
                        const Pegasus::CIMObjectPath& ref, const Pegasus::CIMInstance& /*instance*/,
                        Pegasus::Uint32 /*flags*/, const Pegasus::CIMPropertyList& /*propertyList*/,
                        Pegasus::ResponseHandler<void>& /*handler*/) override {
        see(ref);
        throw Pegasus::CIMException(Pegasus::CIM_ERR_NOT_SUPPORTED, "modify");
    }

    void createInstance(const Pegasus::OperationContext& /*context*/,
                        const Pegasus::CIMObjectPath& ref, const Pegasus::CIMInstance& /*instance*/,
                        Pegasus::ResponseHandler<Pegasus::CIMObjectPath>& /*handler*/) override {
        see(ref);
        throw Pegasus::CIMException(Pegasus::CIM_ERR_NOT_SUPPORTED, "create");
    }

    void deleteInstance(const Pegasus::OperationContext& /*context*/,
                        const Pegasus::CIMObjectPath& ref,
                        Pegasus::ResponseHandler<void>& /*handler*/) override {
        see(ref);
        throw Pegasus::CIMException(Pegasus::CIM_ERR_NOT_SUPPORTED, "delete");
    }

    void invokeMethod(const Pegasus::OperationContext& /*context*/,
                      const Pegasus::CIMObjectPath& ref, const Pegasus::String& methodName,
                      const Pegasus::Array<Pegasus::CIMParamValue>& inParameters,
                      Pegasus::Array<Pegasus::CIMParamValue>& outParameters,
                      Pegasus::ResponseHandler<Pegasus::CIMValue>& handler) override {
        see(ref);
        handler.processing();
        script_.method(cimom_, methodName, inParameters, outParameters, handler);
        handler.complete();
    }

private:
    static std::string text(const Pegasus::String& string) {
        return static_cast<const char*>(string.getCString());
    }

    void see(const Pegasus::CIMObjectPath& ref) {
        script_.pathsSeen.push_back(text(ref.toString()));
    }

    void failIfScripted(const Pegasus::CIMObjectPath& ref) const {
        const auto error = script_.enumerationErrors.find(text(ref.getClassName().getString()));
        if (error != script_.enumerationErrors.end()) {
            throw Pegasus::CIMException(error->second, "scripted");
        }
    }

    /// Class names are looked up in any case.
    std::vector<Pegasus::CIMInstance> instancesOf(const Pegasus::CIMObjectPath& ref) const {
        for (const auto& [className, instances] : script_.instances) {
            if (ref.getClassName().equal(Pegasus::CIMName(className.c_str()))) {
                return instances;
            }
        }
        return {};
    }

    Script& script_;
    Pegasus::CIMOMHandle cimom_;
};

}  // namespace cimhost
