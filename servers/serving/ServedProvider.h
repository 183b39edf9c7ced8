// SPDX-License-Identifier: MIT
// A provider as a server uses it: requests in, whole answers out, the library's conditions kept.
#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <optional>

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/OperationContext.h>

#include "base/ThreadSafety.h"
#include "servers/serving/ProviderLocks.h"

namespace Pegasus {
class CIMOMConnection;
inline namespace provider_interface {
class CIMBaseProvider;
}  // namespace provider_interface
}  // namespace Pegasus

namespace serving {

/// What a method gave back.
struct MethodAnswer {
    /// Whether the method has a return value at all; `value` means nothing where it has none.
    bool hasValue = false;
    Pegasus::CIMValue value;
    Pegasus::Array<Pegasus::CIMParamValue> outParameters;
};

/// How long a client waits for an answer at most. OpenPegasus waits at its end for requests that it
/// has accepted, by default for 30 seconds, and for ever for their threads.
constexpr std::chrono::seconds defaultAnswerLimit{20};

/// One provider object of the library, for use by many threads at once.
///
/// It keeps what the library relies on (see ProviderLocks), takes each answer whole before it
/// returns, so that nothing is sent under a lock, completes references that clients send bare, and
/// finds association instances whatever spelling of their keys the client uses. The header names
/// object-model types only: a unit that knows the server's own provider classes can include it.
///
/// Every operation may be called from any thread and throws what the library threw; an operation
/// after terminate() throws CIMException (status 1, failed).
///
/// A device list whose reading blocks keeps a method inside the library for as long as it likes. So
/// methods run on threads of their own, and no operation waits for the library (to enter it, or to
/// go on in it after a call back into the server) or for the end of its method longer than the answer
/// limit: it then throws ProviderBusy, while the method goes on.
class ServedProvider {
public:
    /// Takes over the provider object and initializes it. `locks` belong to the loaded library and
    /// must outlive this object; `server` answers the library's calls back.
    ServedProvider(std::unique_ptr<Pegasus::CIMBaseProvider> provider, ProviderLocks& locks,
                   std::shared_ptr<Pegasus::CIMOMConnection> server,
                   std::chrono::milliseconds answerLimit = defaultAnswerLimit);
    ServedProvider(const ServedProvider&) = delete;
    ServedProvider& operator=(const ServedProvider&) = delete;
    ~ServedProvider();

    /// The instance of the path. CIMException 6 if there is none.
    Pegasus::CIMInstance getInstance(const Pegasus::OperationContext& context,
                                     const Pegasus::CIMObjectPath& path);

    /// All instances of the path's class, each with its own path.
    Pegasus::Array<Pegasus::CIMInstance> enumerateInstances(
        const Pegasus::OperationContext& context, const Pegasus::CIMObjectPath& classPath);

    /// The paths of all instances of the path's class.
    Pegasus::Array<Pegasus::CIMObjectPath> enumerateInstanceNames(
        const Pegasus::OperationContext& context, const Pegasus::CIMObjectPath& classPath);

    /// Makes an instance and returns its path.
    Pegasus::CIMObjectPath createInstance(const Pegasus::OperationContext& context,
                                          const Pegasus::CIMObjectPath& path,
                                          const Pegasus::CIMInstance& instance);

    /// Replaces the properties of the instance of the path.
    void modifyInstance(const Pegasus::OperationContext& context,
                        const Pegasus::CIMObjectPath& path, const Pegasus::CIMInstance& instance,
                        const Pegasus::CIMPropertyList& propertyList);

    /// Removes the instance of the path.
    void deleteInstance(const Pegasus::OperationContext& context,
                        const Pegasus::CIMObjectPath& path);

    /// Invokes a method of the object. References among the in-parameters that name no namespace
    /// are taken to lie in that of the path. CIMException 4 for a path without keys: no method of the
    /// library is one of its class.
    MethodAnswer invokeMethod(const Pegasus::OperationContext& context,
                              const Pegasus::CIMObjectPath& path, const Pegasus::String& methodName,
                              const Pegasus::Array<Pegasus::CIMParamValue>& inParameters);

    /// Refuses further requests, waits for those inside, then terminates and deletes the provider
    /// object. Where a request is still inside after `patience` (its device list may be wedged)
    /// false is returned and nothing is deleted: that request and those that wait for it still
    /// need the provider object, so this object and the library must stay. May be called again.
    bool terminate(std::chrono::milliseconds patience);

private:
    class Request;

    template <class Work>
    void enter(const Request& request, const Pegasus::OperationContext& context, Work work,
               std::optional<std::chrono::milliseconds> timePerCall = std::nullopt);
    MethodAnswer runMethod(const Request& request, const Pegasus::OperationContext& context,
                           const Pegasus::CIMObjectPath& path, const Pegasus::String& methodName,
                           const Pegasus::Array<Pegasus::CIMParamValue>& inParameters);
    Pegasus::CIMInstance getInstanceAsSpelt(const Request& request,
                                            const Pegasus::OperationContext& context,
                                            const Pegasus::CIMObjectPath& path);
    Pegasus::CIMObjectPath storedSpelling(const Request& request,
                                          const Pegasus::OperationContext& context,
                                          const Pegasus::CIMObjectPath& path);

    Pegasus::Array<Pegasus::CIMObjectPath> instanceNames(const Request& request,
                                                         const Pegasus::OperationContext& context,
                                                         const Pegasus::CIMObjectPath& classPath);

    std::unique_ptr<Pegasus::CIMBaseProvider> provider_;
    ProviderLocks& locks_;
    const std::chrono::milliseconds answerLimit_;

    base::Mutex stateMutex_;
    std::condition_variable requestLeft_;
    int requestsInside_ ZORVA_GUARDED_BY(stateMutex_) = 0;
    bool terminated_ ZORVA_GUARDED_BY(stateMutex_) = false;
};

}  // namespace serving
