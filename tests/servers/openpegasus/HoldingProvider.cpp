// SPDX-License-Identifier: MIT
// A provider of the computer system, for tests: it holds calls that ask for the system's name, so that
// whoever calls back into the server stays inside that call for as long as a test wants.
//
// While there is a file "hold-N" in the working directory, N from 1 on, a call makes it "held-N" and
// returns once that is gone. Other calls pass.
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <thread>

#include <Pegasus/Provider/CIMInstanceProvider.h>

using namespace Pegasus;

namespace {

constexpr int mostHolds = 16;

void waitWhereHeld() {
    for (int number = 1; number <= mostHolds; ++number) {
        const std::string held = "held-" + std::to_string(number);
        if (std::rename(("hold-" + std::to_string(number)).c_str(), held.c_str()) == 0) {
            while (::access(held.c_str(), F_OK) == 0) {
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            }
            return;
        }
    }
}

class HoldingProvider : public CIMInstanceProvider {
public:
    void initialize(CIMOMHandle& /*cimom*/) override {}
    void terminate() override { delete this; }

    void enumerateInstanceNames(const OperationContext& /*context*/, const CIMObjectPath& reference,
                                ObjectPathResponseHandler& handler) override {
        waitWhereHeld();
        handler.processing();
        handler.deliver(path(reference));
        handler.complete();
    }

    void getInstance(const OperationContext& /*context*/, const CIMObjectPath& reference,
                     const Boolean /*includeQualifiers*/, const Boolean /*includeClassOrigin*/,
                     const CIMPropertyList& /*propertyList*/,
                     InstanceResponseHandler& handler) override {
        handler.processing();
        handler.deliver(system(reference));
        handler.complete();
    }

    void enumerateInstances(const OperationContext& /*context*/, const CIMObjectPath& reference,
                            const Boolean /*includeQualifiers*/,
                            const Boolean /*includeClassOrigin*/,
                            const CIMPropertyList& /*propertyList*/,
                            InstanceResponseHandler& handler) override {
        handler.processing();
        handler.deliver(system(reference));
        handler.complete();
    }

    void modifyInstance(const OperationContext& /*context*/, const CIMObjectPath& /*reference*/,
                        const CIMInstance& /*instance*/, const Boolean /*includeQualifiers*/,
                        const CIMPropertyList& /*propertyList*/,
                        ResponseHandler& /*handler*/) override {
        throw CIMException(CIM_ERR_NOT_SUPPORTED);
    }
    void createInstance(const OperationContext& /*context*/, const CIMObjectPath& /*reference*/,
                        const CIMInstance& /*instance*/,
                        ObjectPathResponseHandler& /*handler*/) override {
        throw CIMException(CIM_ERR_NOT_SUPPORTED);
    }
    void deleteInstance(const OperationContext& /*context*/, const CIMObjectPath& /*reference*/,
                        ResponseHandler& /*handler*/) override {
        throw CIMException(CIM_ERR_NOT_SUPPORTED);
    }

private:
    static constexpr const char* className = "QUIRVO_ComputerSystem";

    static CIMObjectPath path(const CIMObjectPath& reference) {
        Array<CIMKeyBinding> keys;
        keys.append(CIMKeyBinding("CreationClassName", String(className), CIMKeyBinding::STRING));
        keys.append(CIMKeyBinding("Name", String("held"), CIMKeyBinding::STRING));
        return CIMObjectPath(String(), reference.getNameSpace(), className, keys);
    }

    static CIMInstance system(const CIMObjectPath& reference) {
        CIMInstance instance(className);
        instance.addProperty(CIMProperty("CreationClassName", String(className)));
        instance.addProperty(CIMProperty("Name", String("held")));
        instance.setPath(path(reference));
        return instance;
    }
};

}  // namespace

extern "C" PEGASUS_EXPORT CIMProvider* PegasusCreateProvider(const String& name) {
    return String::equalNoCase(name, "HoldingProvider") ? new HoldingProvider() : nullptr;
}
