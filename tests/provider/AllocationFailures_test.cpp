// SPDX-License-Identifier: MIT
// The library when memory runs out: at each single allocation of a request, and from there on.
#include <algorithm>
#include <functional>
#include <new>
#include <optional>

#include "tests/provider/LoadedProvider.h"
#include "tests/support/FailingAllocator.h"

namespace Pegasus {
namespace {

using failing_allocator::Mode;

// Each allocation fails where the code is optimised, some of them where exceptions take long.
#ifndef NDEBUG
constexpr std::size_t step = 17;
#else
constexpr std::size_t step = 1;
#endif

constexpr Mode modes[] = {Mode::once, Mode::onwards};
const char* const servedClasses[] = {
    "ZORVA_UsbHc_DiagTest",         "ZORVA_UsbHc_DiagResult",
    "ZORVA_UsbHc_DiagResultForMSE", "ZORVA_UsbHc_DiagResultForTest",
    "ZORVA_UsbHc_DiagTestForMSE",   "ZORVA_UsbHc_DiagTestSoftwareAssoc"};

/// Does `request` with one allocation after the other failing, and `check` after each, until a request
/// needs no more. `check` gets what was returned, or nothing if std::bad_alloc was thrown; what else is
/// thrown propagates. Returns how many allocations there were, or nearly as many.
template <class Request, class Check>
std::size_t forEachFailure(Mode mode, Request request, Check check) {
    for (std::size_t failing = 1;; failing += step) {
        SCOPED_TRACE((mode == Mode::once ? "only " : "from ") + std::to_string(failing));
        std::optional<std::string> answer;
        try {
            failing_allocator::run(failing, mode, [&] { answer = request(); });
        } catch (const std::bad_alloc&) {
            answer.reset();
        }
        const bool hasFailed = failing_allocator::hasFailed();
        check(answer);
        if (testing::Test::HasFailure() || !hasFailed) {
            return failing - 1;
        }
    }
}

CIMObjectPath settingPath() {
    return CIMObjectPath(String("root/kavex:Setting.InstanceID=\"s\""));
}

void addSetting(TestServer& server) {
    CIMInstance setting{CIMName("Setting")};
    setting.addProperty(CIMProperty(CIMName("PercentOfTestCoverage"), CIMValue(Uint8(80))));
    server.add(settingPath(), setting);
}

std::string run(Client& client, const char* deviceId) {
    Array<CIMParamValue> parameters = elementParameter(deviceId);
    parameters.append(CIMParamValue("Setting", CIMValue(settingPath())));
    return client.invoke("RunTest", parameters);
}

Texts linesOf(const CIMInstance& result) {
    return lines(result.getProperty(result.findProperty("TestResults")).getValue());
}

std::string stateOf(const CIMInstance& result) {
    return propertyText(result, "TestState");
}

struct Request {
    const char* name;
    std::function<std::string(Client&)> send;
};

/// Every kind of request that only reads, of each class.
std::vector<Request> reads() {
    std::vector<Request> all;
    for (const char* className : servedClasses) {
        all.push_back({className, [=](Client& client) {
                           return std::to_string(client.instances(className).size()) +
                                  std::to_string(client.names(className).size());
                       }});
    }
    const std::string result = resultPathText(usbTestName, "usb1");
    for (const std::string& path : {testPathText(), result}) {
        all.push_back({"getInstance", [=](Client& client) {
                           return text(client.get(CIMObjectPath(String(path.c_str()))).getPath());
                       }});
    }
    return all;
}

/// A library with a result of "usb1" and one of "usb2".
class AllocationFailures : public LoadedProvider {
protected:
    AllocationFailures() {
        PrivateDeviceList::show(std::string(hubList) + hubList);
        addSetting(*server_);
        run(client_, "usb1");
        run(client_, "usb2");
    }

    std::vector<CIMInstance> resultsOf(const std::string& deviceId) {
        std::vector<CIMInstance> found;
        for (const CIMInstance& result : client_.instances("ZORVA_UsbHc_DiagResult")) {
            if (propertyText(result, "ExecutionID") == "string " + deviceId) {
                found.push_back(result);
            }
        }
        return found;
    }

    /// The properties of the only result of the element; empty if there is none.
    Texts resultOf(const char* deviceId) {
        const auto results = resultsOf(deviceId);
        EXPECT_LE(results.size(), 1U);
        return results.empty() ? Texts() : propertiesOf(results[0]);
    }
};

TEST_F(AllocationFailures, RunLosesNoLineAndNoResultAndTheNextRunPasses) {
    const Texts full = linesOf(resultsOf("usb1").at(0));
    const Texts other = resultOf("usb2");
    for (const Mode mode : modes) {
        std::size_t linesBefore = 0;
        const std::size_t failures = forEachFailure(
            mode, [&] { return run(client_, "usb1"); },
            [&](const std::optional<std::string>& answer) {
                const auto results = resultsOf("usb1");
                ASSERT_EQ(results.size(), 1U);
                const Texts written = linesOf(results[0]);
                const bool hasPassed = stateOf(results[0]) == "uint16 2";
                if (answer) {
                    EXPECT_EQ(*answer, "uint32 0");
                    EXPECT_TRUE(hasPassed);
                }
                if (hasPassed) {
                    EXPECT_EQ(written, full);
                    EXPECT_EQ(propertyText(results[0], "PercentOfTestCoverage"), "uint8 80");
                } else {
                    // The later the failure, the more lines stand.
                    EXPECT_GE(written.size(), linesBefore);
                    linesBefore = written.size();
                    ASSERT_LE(written.size(), full.size());
                    EXPECT_TRUE(std::equal(written.begin(), written.end(), full.begin()));
                }
                EXPECT_EQ(resultOf("usb2"), other);

                EXPECT_EQ(run(client_, "usb1"), "uint32 0");
                const auto again = resultsOf("usb1");
                ASSERT_EQ(again.size(), 1U);
                EXPECT_EQ(linesOf(again[0]), full);
                EXPECT_EQ(stateOf(again[0]), "uint16 2");
            });
        EXPECT_GT(linesBefore + step, full.size());
        EXPECT_GT(failures, 2 * full.size());
    }
}

TEST_F(AllocationFailures, ReadsChangeNothing) {
    const Texts first = resultOf("usb1");
    const Texts second = resultOf("usb2");
    for (const Request& read : reads()) {
        SCOPED_TRACE(read.name);
        const std::string whole = read.send(client_);
        for (const Mode mode : modes) {
            EXPECT_GT(forEachFailure(
                          mode, [&] { return read.send(client_); },
                          [&](const std::optional<std::string>& answer) {
                              EXPECT_EQ(answer.value_or(whole), whole);
                              EXPECT_EQ(resultOf("usb1"), first);
                              EXPECT_EQ(resultOf("usb2"), second);
                          }),
                      0U);
            EXPECT_EQ(read.send(client_), whole);
        }
    }
}

TEST_F(AllocationFailures, ClearResultsClearsOrLeavesTheResult) {
    const Texts other = resultOf("usb2");
    for (const Mode mode : modes) {
        forEachFailure(
            mode, [&] { return client_.invoke("ClearResults", elementParameter("usb1")); },
            [&](const std::optional<std::string>& answer) {
                const auto left = resultsOf("usb1");
                EXPECT_TRUE(left.empty() || (left.size() == 1 && stateOf(left[0]) == "uint16 2"));
                if (answer) {
                    EXPECT_EQ(*answer, "uint32 0");
                    EXPECT_TRUE(left.empty());
                }
                EXPECT_EQ(resultOf("usb2"), other);
                EXPECT_EQ(run(client_, "usb1"), "uint32 0");
                EXPECT_EQ(resultsOf("usb1").size(), 1U);
            });
    }
}

TEST_F(AllocationFailures, DiscontinueTestChangesTheStateAloneOrNothing) {
    const Texts lines = linesOf(resultsOf("usb1").at(0));
    const Texts other = resultOf("usb2");
    for (const Mode mode : modes) {
        forEachFailure(
            mode, [&] { return client_.invoke("DiscontinueTest", elementParameter("usb1")); },
            [&](const std::optional<std::string>& answer) {
                const auto results = resultsOf("usb1");
                ASSERT_EQ(results.size(), 1U);
                if (answer) {
                    EXPECT_EQ(stateOf(results[0]), "uint16 7");
                }
                EXPECT_TRUE(stateOf(results[0]) == "uint16 7" || stateOf(results[0]) == "uint16 2");
                EXPECT_EQ(linesOf(results[0]), lines);
                EXPECT_EQ(resultOf("usb2"), other);
                EXPECT_EQ(run(client_, "usb1"), "uint32 0");
            });
    }
}

// The library is unloaded with all that it keeps, so whatever is left then was lost.
TEST(AllocationFailuresOfALibrary, NothingIsLeaked) {
    PrivateDeviceList::show(std::string(hubList) + hubList);
    const LogFolder folder;
    testing::internal::CaptureStdout();
    std::vector<Request> requests = reads();
    requests.push_back({"RunTest", [](Client& client) { return run(client, "usb1"); }});
    requests.push_back({"ClearResults", [](Client& client) {
                            return client.invoke("ClearResults", elementParameter("usb1"));
                        }});
    requests.push_back({"DiscontinueTest", [](Client& client) {
                            return client.invoke("DiscontinueTest", elementParameter("usb1"));
                        }});
    Texts leaks;
    for (const Request& request : requests) {
        bool hasFailed = true;
        for (std::size_t failing = 1; hasFailed; failing += step) {
            const long before = failing_allocator::piecesInUse();
            {
                const auto server = std::make_shared<TestServer>();
                server->addHost();
                server->addElement("usb1");
                addSetting(*server);
                const LoadedLibrary library(ZORVA_LIBRARY);
                Client client(library.create());
                CIMOMHandle handle(server);
                client.provider().initialize(handle);
                run(client, "usb1");
                try {
                    failing_allocator::run(failing, Mode::once, [&] { request.send(client); });
                } catch (const std::bad_alloc&) {
                    // What fails is given up.
                }
                hasFailed = failing_allocator::hasFailed();
                client.provider().terminate();
            }
            if (failing_allocator::piecesInUse() != before) {
                leaks.push_back(std::string(request.name) + " at " + std::to_string(failing));
            }
        }
    }
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(leaks, Texts());
}

}  // namespace
}  // namespace Pegasus
