// SPDX-License-Identifier: MIT
// The library if a call back into the server throws: each of the calls, any kind of exception.
#include <stdexcept>

#include "tests/provider/LoadedProvider.h"

namespace Pegasus {
namespace {

const std::vector<std::pair<const char*, std::function<void()>>> failures = {
    {"CIMException", [] { throw CIMException(CIM_ERR_ACCESS_DENIED, "no"); }},
    {"Exception", [] { throw Exception("broken"); }},
    {"TypeMismatchException", [] { throw TypeMismatchException(); }},
    {"std::runtime_error", [] { throw std::runtime_error("broken"); }},
    {"std::bad_alloc", [] { throw std::bad_alloc(); }},
    {"int", [] { throw 1; }}};

class ServerFailures : public LoadedProvider {
protected:
    // All results with all their properties.
    Texts results() {
        Texts all;
        for (const CIMInstance& instance : client_.instances("ZORVA_UsbHc_DiagResult")) {
            all.push_back(text(instance.getPath()));
            for (const std::string& property : propertiesOf(instance)) {
                all.push_back(property);
            }
        }
        return all;
    }

    // Runs with element and setting. Returns "threw" if an exception left the library.
    std::string run() {
        Array<CIMParamValue> parameters = elementParameter("usb1");
        parameters.append(CIMParamValue("Setting", CIMValue(elementPath("usb2"))));
        return guarded([&] { return client_.invoke("RunTest", parameters); });
    }

    template <class Request>
    static std::string guarded(Request request) {
        try {
            return request();
        } catch (...) {
            return "threw";
        }
    }

    void failAt(std::size_t failing, const std::function<void()>& fail) {
        server_->forgetCalls();
        server_->beforeCall = [=](std::size_t call) {
            if (call == failing) {
                fail();
            }
        };
    }
};

TEST_F(ServerFailures, RunCallsTheServerEightTimes) {
    server_->forgetCalls();
    EXPECT_EQ(run(), "uint32 0");
    // The element; two for the host of the record; the setting; two for the host of each of the two
    // tables of tests.
    EXPECT_EQ(server_->calls().size(), 8U);
}

TEST_F(ServerFailures, EveryFailureOfARunLeavesOneRecordAndTheNextRunPasses) {
    PrivateDeviceList::show(hubList);
    ASSERT_EQ(run(), "uint32 0");
    for (const auto& failure : failures) {
        const std::string kind = failure.first;
        const bool isOfTheObjectModel = kind.find("ception") != std::string::npos;
        for (std::size_t failing = 1; failing <= 8; ++failing) {
            SCOPED_TRACE(kind + " at " + std::to_string(failing));
            failAt(failing, failure.second);
            const std::string outcome = run();
            server_->beforeCall = nullptr;
            // Without the element no test, without the setting one without it; a look-up of the host
            // that fails as a server says it has found none.
            std::string expected = "threw";
            if (isOfTheObjectModel && failing == 1) {
                expected = "uint32 1044";
            } else if (kind == "CIMException" || (isOfTheObjectModel && failing == 4)) {
                expected = "uint32 0";
            }
            EXPECT_EQ(outcome, expected);

            // The record of the run before as long as there is no new one.
            const bool isUnfinished = outcome == "threw" && failing > 3;
            std::vector<CIMInstance> all = client_.instances("ZORVA_UsbHc_DiagResult");
            ASSERT_EQ(all.size(), 1U);
            EXPECT_EQ(propertyText(all[0], "TestState"), isUnfinished ? "uint16 0" : "uint16 2");

            EXPECT_EQ(run(), "uint32 0");
            all = client_.instances("ZORVA_UsbHc_DiagResult");
            ASSERT_EQ(all.size(), 1U);
            EXPECT_EQ(propertyText(all[0], "TestState"), "uint16 2");
            EXPECT_FALSE(
                lines(all[0].getProperty(all[0].findProperty("TestResults")).getValue()).empty());
        }
    }
}

TEST_F(ServerFailures, FailureBeforeTheNewRecordLeavesTheOldOneUnchanged) {
    for (const auto& failure : failures) {
        for (const std::size_t failing : {1U, 2U, 3U}) {
            ASSERT_EQ(run(), "uint32 0");
            const Texts before = results();
            failAt(failing, failure.second);
            const std::string outcome = run();
            server_->beforeCall = nullptr;
            // A CIMException is no failure of the look-up of the host.
            if (failing > 1 && std::string(failure.first) == "CIMException") {
                EXPECT_EQ(outcome, "uint32 0");
                EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagResult").size(), 1U);
            } else {
                EXPECT_EQ(results(), before) << failure.first << " at " << failing;
            }
        }
    }
}

TEST_F(ServerFailures, ElementThatCannotBeFetchedIs1044ForExceptionsOfTheObjectModel) {
    for (const auto& failure : failures) {
        failAt(1, failure.second);
        const bool isOfTheObjectModel =
            std::string(failure.first).find("ception") != std::string::npos;
        EXPECT_EQ(run(), isOfTheObjectModel ? "uint32 1044" : "threw") << failure.first;
    }
}

TEST_F(ServerFailures, SettingThatCannotBeFetchedIsIgnoredForExceptionsOfTheObjectModel) {
    failAt(4, failures[0].second);
    EXPECT_EQ(run(), "uint32 0");
    failAt(4, failures[1].second);
    EXPECT_EQ(run(), "uint32 0");
    failAt(4, failures[3].second);
    EXPECT_EQ(run(), "threw");
}

TEST_F(ServerFailures, FailureOfAReadLeavesTheTablesUnchanged) {
    ASSERT_EQ(run(), "uint32 0");
    const Texts before = results();
    for (const char* className :
         {"ZORVA_UsbHc_DiagTest", "ZORVA_UsbHc_DiagResult", "ZORVA_UsbHc_DiagResultForMSE",
          "ZORVA_UsbHc_DiagResultForTest", "ZORVA_UsbHc_DiagTestForMSE",
          "ZORVA_UsbHc_DiagTestSoftwareAssoc"}) {
        const Texts names = client_.names(className);
        for (const auto& failure : failures) {
            for (std::size_t failing = 1; failing <= 3; ++failing) {
                failAt(failing, failure.second);
                guarded([&] { return client_.names(className).empty() ? "" : "names"; });
                failAt(failing, failure.second);
                guarded([&] { return client_.instances(className).empty() ? "" : "instances"; });
                server_->beforeCall = nullptr;
                EXPECT_EQ(client_.names(className), names) << className << " " << failure.first;
                EXPECT_EQ(results(), before);
            }
        }
    }
}

TEST_F(ServerFailures, MethodsWithoutCallsToTheServerWorkWithoutIt) {
    run();
    server_->beforeCall = [](std::size_t) { throw std::runtime_error("broken"); };
    EXPECT_EQ(client_.invoke("DiscontinueTest", elementParameter("usb1")), "");
    EXPECT_EQ(client_.names("ZORVA_UsbHc_DiagResult").size(), 1U);
    EXPECT_EQ(client_.invoke("ClearResults", elementParameter("usb1")), "uint32 0");
    EXPECT_TRUE(client_.names("ZORVA_UsbHc_DiagResult").empty());
}

}  // namespace
}  // namespace Pegasus
