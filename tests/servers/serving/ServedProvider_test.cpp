// SPDX-License-Identifier: MIT
#include "servers/serving/ServedProvider.h"

#include <atomic>
#include <functional>
#include <future>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>
#include <Pegasus/Provider/ProviderExceptions.h>
#include <gtest/gtest.h>

using namespace Pegasus;
using serving::MethodAnswer;
using serving::ProviderLocks;
using serving::ServedProvider;

namespace {

constexpr auto soon = std::chrono::seconds(20);
constexpr auto atOnce = std::chrono::milliseconds(0);

bool isFree(serving::TimedMutex& mutex) {
    const bool locked = mutex.lockUntil(std::chrono::steady_clock::now());
    if (locked) {
        mutex.unlock();
    }
    return locked;
}

/// What a test makes the provider do; each hook is optional.
struct Script {
    std::function<void(const CIMObjectPath&, ResponseHandler<CIMInstance>&)> get;
    std::function<void(ResponseHandler<CIMObjectPath>&)> names;
    std::function<void()> initialize;
    std::function<void()> write;
    std::function<void(const Array<CIMParamValue>&, Array<CIMParamValue>&,
                       ResponseHandler<CIMValue>&)>
        method;
    CIMOMHandle handle;
    int terminated = 0;
    int deleted = 0;
};

class ScriptedProvider : public CIMInstanceProvider, public CIMMethodProvider {
public:
    explicit ScriptedProvider(Script& script) : script_(script) {}
    ~ScriptedProvider() override { script_.deleted++; }

    void initialize(CIMOMHandle& cimom) override {
        script_.handle = cimom;
        if (script_.initialize) {
            script_.initialize();
        }
    }
    void terminate() override { script_.terminated++; }

    void getInstance(const OperationContext& /*context*/, const CIMObjectPath& ref,
                     Uint32 /*flags*/, const CIMPropertyList& /*propertyList*/,
                     ResponseHandler<CIMInstance>& handler) override {
        script_.get(ref, handler);
    }
    void enumerateInstances(const OperationContext& /*context*/, const CIMObjectPath& ref,
                            Uint32 /*flags*/, const CIMPropertyList& /*propertyList*/,
                            ResponseHandler<CIMInstance>& handler) override {
        script_.get(ref, handler);
    }
    void enumerateInstanceNames(const OperationContext& /*context*/, const CIMObjectPath& /*ref*/,
                                ResponseHandler<CIMObjectPath>& handler) override {
        script_.names(handler);
    }
    void modifyInstance(const OperationContext& /*context*/, const CIMObjectPath& /*ref*/,
                        const CIMInstance& /*instance*/, Uint32 /*flags*/,
                        const CIMPropertyList& /*propertyList*/,
                        ResponseHandler<void>& /*handler*/) override {
        write("modify");
    }
    void createInstance(const OperationContext& /*context*/, const CIMObjectPath& /*ref*/,
                        const CIMInstance& /*instance*/,
                        ResponseHandler<CIMObjectPath>& /*handler*/) override {
        write("create");
    }
    void deleteInstance(const OperationContext& /*context*/, const CIMObjectPath& /*ref*/,
                        ResponseHandler<void>& /*handler*/) override {
        write("delete");
    }
    void invokeMethod(const OperationContext& /*context*/, const CIMObjectPath& /*ref*/,
                      const String& /*methodName*/, const Array<CIMParamValue>& inParameters,
                      Array<CIMParamValue>& outParameters,
                      ResponseHandler<CIMValue>& handler) override {
        script_.method(inParameters, outParameters, handler);
    }

private:
    void write(const char* operation) {
        if (script_.write) {
            script_.write();
        }
        throw NotSupported(operation);
    }

    Script& script_;
};

/// A server whose answer to every call a test decides.
class ScriptedServer : public CIMOMConnection {
public:
    Array<CIMObjectPath> enumerateInstanceNames(const OperationContext& context,
                                                const CIMNamespaceName& /*nameSpace*/,
                                                const CIMName& /*className*/) override {
        lastContext = &context;
        if (onCall) {
            onCall();
        }
        return Array<CIMObjectPath>();
    }
    CIMInstance getInstance(const OperationContext& context, const CIMNamespaceName& /*nameSpace*/,
                            const CIMObjectPath& /*instanceName*/, Boolean /*localOnly*/,
                            Boolean /*includeQualifiers*/, Boolean /*includeClassOrigin*/,
                            const CIMPropertyList& /*propertyList*/) override {
        lastContext = &context;
        if (onCall) {
            onCall();
        }
        return CIMInstance();
    }
    void disallowProviderUnload() override { keptLoaded = true; }

    std::function<void()> onCall;
    const OperationContext* lastContext = nullptr;
    bool keptLoaded = false;
};

class ServedProviderTest : public testing::Test {
protected:
    ServedProviderTest() {
        script.get = [](const CIMObjectPath& ref, ResponseHandler<CIMInstance>& handler) {
            handler.deliver(CIMInstance(ref.getClassName()));
            handler.complete();
        };
        script.names = [](ResponseHandler<CIMObjectPath>& handler) { handler.complete(); };
        script.method = [](const Array<CIMParamValue>& /*in*/, Array<CIMParamValue>& /*out*/,
                           ResponseHandler<CIMValue>& handler) { handler.complete(); };
    }

    /// A call from inside the provider into the server.
    void callServer() {
        script.handle.enumerateInstanceNames(OperationContext(), CIMNamespaceName("root/x"),
                                             CIMName("T_Item"));
    }

    MethodAnswer invoke(const Array<CIMParamValue>& inParameters = Array<CIMParamValue>()) {
        return served.invokeMethod(context, CIMObjectPath("root/kavex:T_Test.Name=\"a\""), "Run",
                                   inParameters);
    }

    template <class Call>
    CIMException refusalOf(Call call) {
        try {
            call();
        } catch (const CIMException& refusal) {
            return refusal;
        }
        ADD_FAILURE() << "nothing was thrown";
        return CIMException(CIM_ERR_SUCCESS);
    }

    Script script;
    ProviderLocks locks;
    std::shared_ptr<ScriptedServer> server = std::make_shared<ScriptedServer>();
    OperationContext context;
    const CIMObjectPath item = CIMObjectPath("root/kavex:T_Item.Id=1");
    ServedProvider served{std::make_unique<ScriptedProvider>(script), locks, server};
};

TEST_F(ServedProviderTest, AnswerIsWhatTheProviderDelivered) {
    EXPECT_EQ(served.getInstance(context, item).getClassName().getString(), "T_Item");
    EXPECT_EQ(served.enumerateInstances(context, item).size(), 1U);
    EXPECT_EQ(served.enumerateInstanceNames(context, item).size(), 0U);
}

TEST_F(ServedProviderTest, AnswerWithoutCompletionIsEmpty) {
    script.get = [](const CIMObjectPath& ref, ResponseHandler<CIMInstance>& handler) {
        handler.deliver(CIMInstance(ref.getClassName()));
    };
    EXPECT_EQ(served.enumerateInstances(context, item).size(), 0U);
}

TEST_F(ServedProviderTest, GetNeedsExactlyOneInstance) {
    script.get = [](const CIMObjectPath& /*ref*/, ResponseHandler<CIMInstance>& handler) {
        handler.complete();
    };
    EXPECT_EQ(refusalOf([&] { served.getInstance(context, item); }).getMessage(),
              "Too few objects delivered.");
    script.get = [](const CIMObjectPath& ref, ResponseHandler<CIMInstance>& handler) {
        handler.deliver(CIMInstance(ref.getClassName()));
        handler.deliver(CIMInstance(ref.getClassName()));
        handler.complete();
    };
    EXPECT_EQ(refusalOf([&] { served.getInstance(context, item); }).getMessage(),
              "Too many objects delivered.");
}

TEST_F(ServedProviderTest, RefusalsPassAsTheyAre) {
    EXPECT_EQ(refusalOf([&] {
                  served.createInstance(context, item, CIMInstance(CIMName("T_Item")));
              }).getMessage(),
              "create");
    EXPECT_EQ(refusalOf([&] {
                  served.modifyInstance(context, item, CIMInstance(CIMName("T_Item")),
                                        CIMPropertyList());
              }).getMessage(),
              "modify");
    EXPECT_EQ(refusalOf([&] { served.deleteInstance(context, item); }).getMessage(), "delete");
}

TEST_F(ServedProviderTest, RequestAfterARefusalIsServed) {
    refusalOf([&] { served.deleteInstance(context, item); });
    EXPECT_EQ(served.enumerateInstances(context, item).size(), 1U);
}

TEST_F(ServedProviderTest, MethodAnswerHoldsValueAndOutParameters) {
    script.method = [](const Array<CIMParamValue>& /*in*/, Array<CIMParamValue>& out,
                       ResponseHandler<CIMValue>& handler) {
        out.append(CIMParamValue("Out", CIMValue(true), true));
        handler.deliver(CIMValue(Uint32(7)));
        handler.complete();
    };
    const MethodAnswer answer = invoke();
    ASSERT_TRUE(answer.hasValue);
    EXPECT_TRUE(answer.value == CIMValue(Uint32(7)));
    ASSERT_EQ(answer.outParameters.size(), 1U);
    EXPECT_EQ(answer.outParameters[0].getParameterName(), "Out");
}

TEST_F(ServedProviderTest, MethodWithoutValueHasNone) {
    EXPECT_FALSE(invoke().hasValue);
}

TEST_F(ServedProviderTest, LastOfSeveralReturnValuesCounts) {
    script.method = [](const Array<CIMParamValue>& /*in*/, Array<CIMParamValue>& /*out*/,
                       ResponseHandler<CIMValue>& handler) {
        handler.deliver(CIMValue(Uint32(7)));
        handler.deliver(CIMValue(Uint32(8)));
        handler.complete();
    };
    EXPECT_TRUE(invoke().value == CIMValue(Uint32(8)));
}

TEST_F(ServedProviderTest, BareReferenceParametersAreCompleted) {
    String seen;
    script.method = [&](const Array<CIMParamValue>& in, Array<CIMParamValue>& /*out*/,
                        ResponseHandler<CIMValue>& handler) {
        CIMObjectPath path;
        in[0].getValue().get(path);
        seen = path.toString();
        handler.complete();
    };
    Array<CIMParamValue> parameters;
    parameters.append(CIMParamValue("P", CIMValue(CIMObjectPath("T_Item.Id=1")), true));
    invoke(parameters);
    EXPECT_EQ(seen, "root/kavex:T_Item.Id=1");
}

TEST_F(ServedProviderTest, AssociationIsFoundInAnotherSpelling) {
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName("End"), "T_Item.Id=1", CIMKeyBinding::STRING));
    const CIMObjectPath stored(String(), CIMNamespaceName(), CIMName("T_Link"), keys);
    script.names = [&](ResponseHandler<CIMObjectPath>& handler) {
        handler.deliver(stored);
        handler.complete();
    };
    script.get = [&](const CIMObjectPath& ref, ResponseHandler<CIMInstance>& handler) {
        if (!(ref == stored)) {
            throw BadReference("Invalid Reference");
        }
        handler.deliver(CIMInstance(ref.getClassName()));
        handler.complete();
    };
    keys[0] = CIMKeyBinding(CIMName("End"), "//h/root/kavex:T_Item.Id=1", CIMKeyBinding::REFERENCE);
    const CIMObjectPath asked("h", CIMNamespaceName("root/kavex"), CIMName("T_Link"), keys);
    EXPECT_EQ(served.getInstance(context, asked).getClassName().getString(), "T_Link");

    keys[0] = CIMKeyBinding(CIMName("End"), "T_Item.Id=2", CIMKeyBinding::REFERENCE);
    const CIMObjectPath other(String(), CIMNamespaceName(), CIMName("T_Link"), keys);
    EXPECT_EQ(refusalOf([&] { served.getInstance(context, other); }).getMessage(),
              "bad reference: Invalid Reference");
}

TEST_F(ServedProviderTest, OtherSpellingsAreTriedOnlyForWhatWasNotFound) {
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName("End"), "T_Item.Id=1", CIMKeyBinding::REFERENCE));
    const CIMObjectPath association(String(), CIMNamespaceName(), CIMName("T_Link"), keys);
    int gets = 0;
    int enumerations = 0;
    CIMStatusCode status = CIM_ERR_ACCESS_DENIED;
    script.get = [&](const CIMObjectPath& /*ref*/, ResponseHandler<CIMInstance>& /*handler*/) {
        ++gets;
        throw CIMException(status, "no");
    };
    script.names = [&](ResponseHandler<CIMObjectPath>& handler) {
        ++enumerations;
        handler.deliver(association);
        handler.complete();
    };
    EXPECT_EQ(refusalOf([&] { served.getInstance(context, association); }).getCode(), status);
    EXPECT_EQ(gets, 1);
    EXPECT_EQ(enumerations, 0);

    // Nor for a path that has only one spelling.
    status = CIM_ERR_NOT_FOUND;
    EXPECT_EQ(refusalOf([&] { served.getInstance(context, item); }).getCode(), status);
    EXPECT_EQ(gets, 2);
    EXPECT_EQ(enumerations, 0);

    EXPECT_EQ(refusalOf([&] { served.getInstance(context, association); }).getCode(), status);
    EXPECT_EQ(gets, 4);
    EXPECT_EQ(enumerations, 1);
}

TEST_F(ServedProviderTest, EveryOperationHoldsTheTableAndMethodsAloneTheMethodLock) {
    const CIMInstance instance(CIMName("T_Item"));
    const std::vector<std::pair<const char*, std::function<void()>>> operations = {
        {"getInstance", [&] { served.getInstance(context, item); }},
        {"enumerateInstances", [&] { served.enumerateInstances(context, item); }},
        {"enumerateInstanceNames", [&] { served.enumerateInstanceNames(context, item); }},
        {"createInstance",
         [&] { refusalOf([&] { served.createInstance(context, item, instance); }); }},
        {"modifyInstance",
         [&] {
             refusalOf([&] { served.modifyInstance(context, item, instance, CIMPropertyList()); });
         }},
        {"deleteInstance", [&] { refusalOf([&] { served.deleteInstance(context, item); }); }},
        {"invokeMethod", [&] { invoke(); }},
    };
    int visits = 0;
    bool isMethod = false;
    const auto visit = [&] {
        ++visits;
        EXPECT_FALSE(isFree(locks.table));
        EXPECT_EQ(isFree(locks.method), !isMethod);
    };
    script.get = [&](const CIMObjectPath& ref, ResponseHandler<CIMInstance>& handler) {
        visit();
        handler.deliver(CIMInstance(ref.getClassName()));
        handler.complete();
    };
    script.names = [&](ResponseHandler<CIMObjectPath>& handler) {
        visit();
        handler.complete();
    };
    script.write = visit;
    script.method = [&](const Array<CIMParamValue>& /*in*/, Array<CIMParamValue>& /*out*/,
                        ResponseHandler<CIMValue>& handler) {
        visit();
        handler.complete();
    };
    for (const auto& [name, operation] : operations) {
        SCOPED_TRACE(name);
        visits = 0;
        isMethod = std::string(name) == "invokeMethod";
        operation();
        EXPECT_EQ(visits, 1);
        EXPECT_TRUE(isFree(locks.table));
        EXPECT_TRUE(isFree(locks.method));
    }
}

TEST_F(ServedProviderTest, ProviderIsInitializedUnderTheTableLock) {
    bool wasFree = true;
    script.initialize = [&] { wasFree = isFree(locks.table); };
    const ServedProvider another(std::make_unique<ScriptedProvider>(script), locks, server);
    EXPECT_FALSE(wasFree);
    EXPECT_TRUE(isFree(locks.table));
}

TEST_F(ServedProviderTest, CallsBackCarryTheContextOfTheRequest) {
    script.get = [&](const CIMObjectPath& /*ref*/, ResponseHandler<CIMInstance>& handler) {
        callServer();
        handler.complete();
    };
    served.enumerateInstances(context, item);
    EXPECT_EQ(server->lastContext, &context);
}

TEST_F(ServedProviderTest, HandleWorksOutsideAnyRequest) {
    callServer();
    EXPECT_NE(server->lastContext, &context);
    script.handle.disallowProviderUnload();
    EXPECT_TRUE(server->keptLoaded);
}

TEST_F(ServedProviderTest, CallBackMayLeadToTheProviderOnTheSameThread) {
    server->onCall = [&] { served.enumerateInstances(context, item); };
    script.method = [&](const Array<CIMParamValue>& /*in*/, Array<CIMParamValue>& /*out*/,
                        ResponseHandler<CIMValue>& handler) {
        callServer();
        handler.complete();
    };
    EXPECT_FALSE(invoke().hasValue);
}

TEST_F(ServedProviderTest, CallBackMayLeadToTheProviderOnAnotherThread) {
    server->onCall = [&] {
        std::async(std::launch::async, [&] { served.enumerateInstances(context, item); }).get();
    };
    script.method = [&](const Array<CIMParamValue>& /*in*/, Array<CIMParamValue>& /*out*/,
                        ResponseHandler<CIMValue>& handler) {
        callServer();
        handler.complete();
    };
    EXPECT_FALSE(invoke().hasValue);
}

TEST_F(ServedProviderTest, LocksAreHeldAgainAfterACallBackThatThrows) {
    server->onCall = [] { throw CIMException(CIM_ERR_FAILED, "no"); };
    script.method = [&](const Array<CIMParamValue>& /*in*/, Array<CIMParamValue>& /*out*/,
                        ResponseHandler<CIMValue>& handler) {
        EXPECT_THROW(callServer(), CIMException);
        EXPECT_FALSE(isFree(locks.table));
        handler.complete();
    };
    invoke();
    EXPECT_TRUE(isFree(locks.table));
    EXPECT_TRUE(isFree(locks.method));
}

TEST_F(ServedProviderTest, ManyThreadsNeverMeetInsideTheProvider) {
    std::atomic<int> inside{0};
    std::atomic<int> methods{0};
    std::atomic<int> meetings{0};
    const auto visit = [&] {
        meetings += inside.fetch_add(1) == 0 ? 0 : 1;
        std::this_thread::yield();
        inside--;
    };
    script.get = [&](const CIMObjectPath& /*ref*/, ResponseHandler<CIMInstance>& handler) {
        visit();
        handler.complete();
    };
    script.method = [&](const Array<CIMParamValue>& /*in*/, Array<CIMParamValue>& /*out*/,
                        ResponseHandler<CIMValue>& handler) {
        meetings += methods.fetch_add(1) == 0 ? 0 : 1;
        visit();
        callServer();
        visit();
        methods--;
        handler.complete();
    };
    server->onCall = [&] { served.enumerateInstances(context, item); };
    std::vector<std::thread> threads;
    threads.reserve(8);
    for (int thread = 0; thread < 8; thread++) {
        threads.emplace_back([&, thread] {
            for (int i = 0; i < 200; i++) {
                if (thread % 2 == 0) {
                    invoke();
                } else {
                    served.enumerateInstances(context, item);
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(meetings, 0);
}

TEST_F(ServedProviderTest, TerminateEndsAndDeletesTheProviderOnce) {
    EXPECT_TRUE(served.terminate(soon));
    EXPECT_TRUE(served.terminate(soon));
    EXPECT_EQ(script.terminated, 1);
    EXPECT_EQ(script.deleted, 1);
    EXPECT_EQ(refusalOf([&] { served.getInstance(context, item); }).getMessage(),
              "the provider has been terminated");
}

TEST_F(ServedProviderTest, TerminateWaitsForTheRequestInside) {
    std::promise<void> entered;
    std::promise<void> mayLeave;
    // In a call back, so that the table is free for requests that find out how far terminate() is.
    server->onCall = [&] {
        entered.set_value();
        mayLeave.get_future().wait();
    };
    script.get = [&](const CIMObjectPath& /*ref*/, ResponseHandler<CIMInstance>& handler) {
        callServer();
        handler.complete();
    };
    auto request =
        std::async(std::launch::async, [&] { served.enumerateInstances(context, item); });
    entered.get_future().wait();
    auto end = std::async(std::launch::async, [&] { return served.terminate(soon); });
    const auto isServed = [&] {
        try {
            served.enumerateInstanceNames(context, item);
            return true;
        } catch (const CIMException&) {
            return false;
        }
    };
    while (isServed()) {
        std::this_thread::yield();
    }
    // Whoever is refused has met terminate() where it waits, or after its end.
    EXPECT_EQ(script.terminated, 0);
    EXPECT_EQ(script.deleted, 0);
    mayLeave.set_value();
    EXPECT_TRUE(end.get());
    request.get();
    EXPECT_EQ(script.terminated, 1);
    EXPECT_EQ(script.deleted, 1);
}

TEST_F(ServedProviderTest, TerminateGivesUpOnARequestThatStaysInside) {
    std::promise<void> entered;
    std::promise<void> mayLeave;
    script.get = [&](const CIMObjectPath& /*ref*/, ResponseHandler<CIMInstance>& handler) {
        entered.set_value();
        mayLeave.get_future().wait();
        handler.complete();
    };
    auto request =
        std::async(std::launch::async, [&] { served.enumerateInstances(context, item); });
    entered.get_future().wait();
    EXPECT_FALSE(served.terminate(atOnce));
    EXPECT_EQ(script.terminated, 0);
    EXPECT_EQ(script.deleted, 0);
    mayLeave.set_value();
    request.get();
    EXPECT_TRUE(served.terminate(soon));
    EXPECT_EQ(script.terminated, 1);
    EXPECT_EQ(script.deleted, 1);
}

TEST_F(ServedProviderTest, RequestThatTerminateGaveUpOnIsServedToItsEnd) {
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName("End"), "T_Item.Id=1", CIMKeyBinding::STRING));
    const CIMObjectPath stored(String(), CIMNamespaceName(), CIMName("T_Link"), keys);
    keys[0] = CIMKeyBinding(CIMName("End"), "T_Item.Id=1", CIMKeyBinding::REFERENCE);
    const CIMObjectPath asked(String(), CIMNamespaceName(), CIMName("T_Link"), keys);
    std::promise<void> entered;
    std::promise<void> mayLeave;
    // The first look fails, the names are slow, and the provider is needed once more after them.
    script.get = [&](const CIMObjectPath& ref, ResponseHandler<CIMInstance>& handler) {
        if (!(ref == stored)) {
            throw BadReference("Invalid Reference");
        }
        handler.deliver(CIMInstance(ref.getClassName()));
        handler.complete();
    };
    script.names = [&](ResponseHandler<CIMObjectPath>& handler) {
        entered.set_value();
        mayLeave.get_future().wait();
        handler.deliver(stored);
        handler.complete();
    };
    auto request =
        std::async(std::launch::async, [&] { return served.getInstance(context, asked); });
    entered.get_future().wait();
    EXPECT_FALSE(served.terminate(atOnce));
    mayLeave.set_value();
    EXPECT_EQ(request.get().getClassName().getString(), "T_Link");
}

/// A provider whose clients do not wait long, with a method that does not end before it may.
class ImpatientClients : public ServedProviderTest {
protected:
    ImpatientClients() {
        script.method = [this](const Array<CIMParamValue>& in, Array<CIMParamValue>& /*out*/,
                               ResponseHandler<CIMValue>& handler) {
            mayLeave.get_future().wait();
            String given;
            in[0].getValue().get(given);
            seen = given;
            handler.complete();
        };
    }

    String refusalOfAMethod() {
        Array<CIMParamValue> in;
        in.append(CIMParamValue("P", CIMValue(String("given"))));
        return refusalOf([&] {
                   impatient.invokeMethod(OperationContext(),
                                          CIMObjectPath("root/kavex:T_Test.Id=1"), "Run", in);
               })
            .getMessage();
    }

    std::promise<void> mayLeave;
    String seen;
    ServedProvider impatient{std::make_unique<ScriptedProvider>(script), locks, server,
                             std::chrono::milliseconds(50)};
};

TEST_F(ImpatientClients, MethodThatDoesNotEndIsGivenUpAndGoesOn) {
    EXPECT_EQ(refusalOfAMethod(),
              "the method is still at work, so that its answer cannot be waited for: reading the "
              "list of USB devices may be blocked");
    EXPECT_FALSE(impatient.terminate(atOnce));
    mayLeave.set_value();
    // What it was given outlives the request.
    EXPECT_TRUE(impatient.terminate(soon));
    EXPECT_EQ(seen, "given");
}

TEST_F(ImpatientClients, RequestsBehindAMethodThatDoesNotEndAreGivenUp) {
    refusalOfAMethod();
    EXPECT_EQ(refusalOf([&] { impatient.enumerateInstances(context, item); }).getMessage(),
              "the provider is still at work on an earlier request");
    EXPECT_NE(refusalOfAMethod(), "");
    mayLeave.set_value();
    EXPECT_TRUE(impatient.terminate(soon));
}

TEST_F(ImpatientClients, RequestsAreServedAgainOnceTheMethodHasEnded) {
    refusalOfAMethod();
    mayLeave.set_value();
    EXPECT_EQ(served.enumerateInstances(context, item).size(), 1U);
    EXPECT_TRUE(impatient.terminate(soon));
}

/// A request that is out of the provider, in the server, while a method that does not end is inside.
class ReadersInACallBack : public ImpatientClients {
protected:
    ReadersInACallBack() {
        script.get = [this](const CIMObjectPath& ref, ResponseHandler<CIMInstance>& handler) {
            callServerAsTheLibraryDoes();
            handler.deliver(CIMInstance(ref.getClassName()));
            handler.complete();
        };
        script.names = [this](ResponseHandler<CIMObjectPath>& handler) {
            callServerAsTheLibraryDoes();
            handler.complete();
        };
        server->onCall = [this] {
            refusalOfAMethod();
            server->onCall = nullptr;
        };
    }

    ~ReadersInACallBack() override {
        mayLeave.set_value();
        EXPECT_TRUE(impatient.terminate(soon));
        EXPECT_FALSE(wentOnWithoutTheLock);
    }

    void callServerAsTheLibraryDoes() {
        try {
            callServer();
        } catch (const Exception&) {
            // No answer is one, too.
        }
        wentOnWithoutTheLock = true;
    }

    template <class Call>
    void expectRefused(Call call) {
        EXPECT_EQ(refusalOf(call).getMessage(),
                  "the provider is still at work on an earlier request");
    }

    std::atomic<bool> wentOnWithoutTheLock{false};
};

TEST_F(ReadersInACallBack, EnumerationIsGivenUp) {
    expectRefused([&] { impatient.enumerateInstances(context, item); });
}

TEST_F(ReadersInACallBack, EnumerationOfNamesIsGivenUp) {
    expectRefused([&] { impatient.enumerateInstanceNames(context, item); });
}

TEST_F(ReadersInACallBack, GetIsGivenUp) {
    expectRefused([&] { impatient.getInstance(context, item); });
}

TEST_F(ReadersInACallBack, GivenUpWhereTheServerFailsAsWell) {
    const auto answer = server->onCall;
    server->onCall = [answer] {
        answer();
        throw CIMException(CIM_ERR_FAILED, "no");
    };
    expectRefused([&] { impatient.enumerateInstances(context, item); });
}

TEST_F(ImpatientClients, MethodMayCallBackAfterItsClientHasGivenUp) {
    std::promise<void> calledBack;
    script.method = [&](const Array<CIMParamValue>& /*in*/, Array<CIMParamValue>& /*out*/,
                        ResponseHandler<CIMValue>& handler) {
        mayLeave.get_future().wait();
        callServer();
        calledBack.set_value();
        handler.complete();
    };
    // While the server answers, another request enters and stays for a moment.
    std::promise<void> entered;
    std::future<void> other;
    script.get = [&](const CIMObjectPath& /*ref*/, ResponseHandler<CIMInstance>& handler) {
        entered.set_value();
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        handler.complete();
    };
    server->onCall = [&] {
        other =
            std::async(std::launch::async, [&] { impatient.enumerateInstances(context, item); });
        entered.get_future().wait();
    };
    refusalOfAMethod();
    mayLeave.set_value();
    EXPECT_EQ(calledBack.get_future().wait_for(soon), std::future_status::ready);
    EXPECT_TRUE(impatient.terminate(soon));
}

TEST_F(ReadersInACallBack, NestedReadHasNoMoreTimeThanTheOneAroundIt) {
    const auto begun = std::chrono::steady_clock::now();
    server->onCall = [this] {
        refusalOfAMethod();
        server->onCall = nullptr;
        expectRefused([&] { served.enumerateInstances(context, item); });
    };
    expectRefused([&] { impatient.enumerateInstances(context, item); });
    EXPECT_LT(std::chrono::steady_clock::now() - begun, serving::defaultAnswerLimit);
}

TEST_F(ServedProviderTest, MethodOfAClassIsRefused) {
    bool reached = false;
    script.method = [&](const Array<CIMParamValue>& /*in*/, Array<CIMParamValue>& /*out*/,
                        ResponseHandler<CIMValue>& handler) {
        reached = true;
        handler.complete();
    };
    const CIMException refusal = refusalOf([&] {
        served.invokeMethod(context, CIMObjectPath("root/kavex:T_Test"), "Run",
                            Array<CIMParamValue>());
    });
    EXPECT_EQ(refusal.getCode(), CIM_ERR_INVALID_PARAMETER);
    EXPECT_EQ(refusal.getMessage(), "Run is a method of instances: the path of T_Test has no keys");
    EXPECT_FALSE(reached);
}

TEST_F(ServedProviderTest, ProviderWithoutMethodsRefusesThem) {
    class InstancesOnly : public CIMBaseProvider {
        void initialize(CIMOMHandle& /*cimom*/) override {}
        void terminate() override {}
    };
    ServedProvider bare(std::make_unique<InstancesOnly>(), locks, server);
    EXPECT_EQ(refusalOf([&] {
                  bare.invokeMethod(context, item, "Run", Array<CIMParamValue>());
              }).getCode(),
              CIM_ERR_NOT_SUPPORTED);
}

}  // namespace
