// SPDX-License-Identifier: MIT
#include "servers/serving/ServedProvider.h"

#include <functional>
#include <optional>
#include <utility>

#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>

#include "servers/serving/CollectingHandler.h"
#include "servers/serving/OwnThread.h"
#include "servers/serving/PathForms.h"
#include "servers/serving/ProviderBusy.h"
#include "servers/serving/RequestScope.h"
#include "servers/serving/UnlockingConnection.h"

using namespace Pegasus;

namespace serving {

namespace {

/// The provider interface has flags that say what of an instance is wanted; the library delivers
/// instances whole.
constexpr Uint32 noFlags = 0;

/// The side of the provider that an operation needs; throws where the provider does not have it.
template <class Side>
Side& side(CIMBaseProvider& provider) {
    auto* wanted = dynamic_cast<Side*>(&provider);
    if (wanted == nullptr) {
        throw CIMException(CIM_ERR_NOT_SUPPORTED);
    }
    return *wanted;
}

/// The one object that the answer must consist of.
template <class Object>
Object onlyObjectOf(const CollectingHandler<Object>& handler) {
    const Array<Object> delivered = handler.answer();
    if (delivered.size() != 1) {
        throw CIMException(CIM_ERR_FAILED, delivered.size() == 0 ? "Too few objects delivered."
                                                                 : "Too many objects delivered.");
    }
    return delivered[0];
}

/// Keeps methods apart, from construction to destruction.
class ZORVA_SCOPED_CAPABILITY MethodLock {
public:
    /// Throws ProviderBusy if another method is still at work at `end`.
    MethodLock(TimedMutex& mutex, std::chrono::steady_clock::time_point end) ZORVA_ACQUIRE(mutex)
        : mutex_(mutex) {
        if (!mutex_.lockUntil(end)) {
            throw ProviderBusy();
        }
    }
    MethodLock(const MethodLock&) = delete;
    MethodLock& operator=(const MethodLock&) = delete;
    ~MethodLock() ZORVA_RELEASE() { mutex_.unlock(); }

private:
    TimedMutex& mutex_;
};

}  // namespace

/// One request inside this object: counted, so that terminate() can wait for it, and with an end to
/// its patience.
class ServedProvider::Request {
public:
    explicit Request(ServedProvider& served)
        : end(std::chrono::steady_clock::now() + served.answerLimit_), served_(served) {
        const base::MutexLock lock(served_.stateMutex_);
        if (served_.terminated_) {
            throw CIMException(CIM_ERR_FAILED, "the provider has been terminated");
        }
        served_.requestsInside_++;
    }
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;
    ~Request() {
        const base::MutexLock lock(served_.stateMutex_);
        served_.requestsInside_--;
        // Under the lock: once terminate() sees no request inside, this object may be gone.
        served_.requestLeft_.notify_all();
    }

    /// When the client is not kept waiting any longer.
    const std::chrono::steady_clock::time_point end;

private:
    ServedProvider& served_;
};

ServedProvider::ServedProvider(std::unique_ptr<CIMBaseProvider> provider, ProviderLocks& locks,
                               std::shared_ptr<CIMOMConnection> server,
                               std::chrono::milliseconds answerLimit)
    : provider_(std::move(provider)), locks_(locks), answerLimit_(answerLimit) {
    CIMOMHandle handle(std::make_shared<UnlockingConnection>(std::move(server)));
    const OperationContext context;
    const RequestScope inside(locks_, context, std::chrono::steady_clock::now() + answerLimit_);
    provider_->initialize(handle);
}

ServedProvider::~ServedProvider() = default;

/// Runs `work` inside the library for the request. One that had to be abandoned there is refused.
/// `timePerCall` as for RequestScope.
template <class Work>
void ServedProvider::enter(const Request& request, const OperationContext& context, Work work,
                           std::optional<std::chrono::milliseconds> timePerCall) {
    try {
        const RequestScope scope(locks_, context, request.end, timePerCall);
        work();
    } catch (const RequestAbandoned&) {
        throw ProviderBusy();
    }
}

CIMInstance ServedProvider::getInstance(const OperationContext& context,
                                        const CIMObjectPath& path) {
    const Request request(*this);
    try {
        return getInstanceAsSpelt(request, context, path);
    } catch (const CIMException& refusal) {
        if (refusal.getCode() != CIM_ERR_NOT_FOUND || !hasPathKey(path)) {
            throw;
        }
        const CIMObjectPath stored = storedSpelling(request, context, path);
        if (stored.getClassName().isNull()) {
            throw;
        }
        return getInstanceAsSpelt(request, context, stored);
    }
}

CIMInstance ServedProvider::getInstanceAsSpelt(const Request& request,
                                               const OperationContext& context,
                                               const CIMObjectPath& path) {
    CollectingHandler<CIMInstance> handler;
    enter(request, context, [&] {
        side<CIMInstanceProvider>(*provider_)
            .getInstance(context, path, noFlags, CIMPropertyList(), handler);
    });
    return onlyObjectOf(handler);
}

/// The path of the same instance as the library spells it, or a null path where it has none.
CIMObjectPath ServedProvider::storedSpelling(const Request& request,
                                             const OperationContext& context,
                                             const CIMObjectPath& path) {
    const CIMObjectPath wanted = canonicalPath(path);
    const Array<CIMObjectPath> names = instanceNames(request, context, path);
    for (Uint32 i = 0; i < names.size(); i++) {
        if (canonicalPath(names[i]) == wanted) {
            return names[i];
        }
    }
    return CIMObjectPath();
}

Array<CIMInstance> ServedProvider::enumerateInstances(const OperationContext& context,
                                                      const CIMObjectPath& classPath) {
    const Request request(*this);
    CollectingHandler<CIMInstance> handler;
    enter(request, context, [&] {
        side<CIMInstanceProvider>(*provider_)
            .enumerateInstances(context, classPath, noFlags, CIMPropertyList(), handler);
    });
    return handler.answer();
}

Array<CIMObjectPath> ServedProvider::enumerateInstanceNames(const OperationContext& context,
                                                            const CIMObjectPath& classPath) {
    return instanceNames(Request(*this), context, classPath);
}

Array<CIMObjectPath> ServedProvider::instanceNames(const Request& request,
                                                   const OperationContext& context,
                                                   const CIMObjectPath& classPath) {
    CollectingHandler<CIMObjectPath> handler;
    enter(request, context, [&] {
        side<CIMInstanceProvider>(*provider_).enumerateInstanceNames(context, classPath, handler);
    });
    return handler.answer();
}

CIMObjectPath ServedProvider::createInstance(const OperationContext& context,
                                             const CIMObjectPath& path,
                                             const CIMInstance& instance) {
    const Request request(*this);
    CollectingHandler<CIMObjectPath> handler;
    enter(request, context, [&] {
        side<CIMInstanceProvider>(*provider_).createInstance(context, path, instance, handler);
    });
    return onlyObjectOf(handler);
}

void ServedProvider::modifyInstance(const OperationContext& context, const CIMObjectPath& path,
                                    const CIMInstance& instance,
                                    const CIMPropertyList& propertyList) {
    const Request request(*this);
    CollectingHandler<void> handler;
    enter(request, context, [&] {
        side<CIMInstanceProvider>(*provider_)
            .modifyInstance(context, path, instance, noFlags, propertyList, handler);
    });
}

void ServedProvider::deleteInstance(const OperationContext& context, const CIMObjectPath& path) {
    const Request request(*this);
    CollectingHandler<void> handler;
    enter(request, context,
          [&] { side<CIMInstanceProvider>(*provider_).deleteInstance(context, path, handler); });
}

MethodAnswer ServedProvider::invokeMethod(const OperationContext& context,
                                          const CIMObjectPath& path, const String& methodName,
                                          const Array<CIMParamValue>& inParameters) {
    if (path.getKeyBindings().size() == 0) {
        // The library would take it for the test without a name.
        throw CIMException(CIM_ERR_INVALID_PARAMETER,
                           methodName + " is a method of instances: the path of " +
                               path.getClassName().getString() + " has no keys");
    }
    // The method owns copies of all that it uses, and is inside as long as it runs: the client's
    // request may be given up before it ends.
    const auto request = std::make_shared<Request>(*this);
    const std::function<MethodAnswer()> run =
        [this, request, context, path, methodName,
         completed = withNamespaceInReferences(inParameters, path.getNameSpace())] {
            return runMethod(*request, context, path, methodName, completed);
        };
    std::optional<MethodAnswer> answer = onOwnThread(run, answerLimit_);
    if (!answer) {
        throw ProviderBusy(
            "the method is still at work, so that its answer cannot be waited for: reading the "
            "list of USB devices may be blocked");
    }
    return *std::move(answer);
}

MethodAnswer ServedProvider::runMethod(const Request& request, const OperationContext& context,
                                       const CIMObjectPath& path, const String& methodName,
                                       const Array<CIMParamValue>& inParameters) {
    MethodAnswer answer;
    CollectingHandler<CIMValue> handler;
    {
        const MethodLock methodsApart(locks_.method, request.end);
        // The method goes on after its client has given up.
        enter(
            request, context,
            [&] {
                side<CIMMethodProvider>(*provider_)
                    .invokeMethod(context, path, methodName, inParameters, answer.outParameters,
                                  handler);
            },
            answerLimit_);
    }
    const Array<CIMValue> delivered = handler.answer();
    if (delivered.size() > 0) {
        answer.hasValue = true;
        answer.value = delivered[delivered.size() - 1];
    }
    return answer;
}

bool ServedProvider::terminate(std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    base::MutexLock lock(stateMutex_);
    terminated_ = true;
    while (requestsInside_ != 0 && lock.waitUntil(requestLeft_, end)) {
    }
    if (requestsInside_ != 0) {
        return false;
    }
    if (provider_) {
        provider_->terminate();
        provider_.reset();
    }
    return true;
}

}  // namespace serving
