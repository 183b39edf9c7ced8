// SPDX-License-Identifier: MIT
// The library can be loaded and unloaded any number of times.
#include <fstream>
#include <iterator>

#include "tests/provider/LoadedProvider.h"

namespace Pegasus {
namespace {

bool isMapped() {
    std::ifstream maps("/proc/self/maps");
    const std::string all(std::istreambuf_iterator<char>(maps), {});
    return all.find("libZORVA_UsbHc_DiagProvider") != std::string::npos;
}

TEST(LoadAndUnload, WorksAThousandTimesWithARunEach) {
    LogFolder folder;
    PrivateDeviceList::show(hubList);
    const auto server = std::make_shared<TestServer>();
    server->addHost();
    server->addElement("usb1");
    testing::internal::CaptureStdout();
    for (int cycle = 0; cycle < 1000; ++cycle) {
        {
            const LoadedLibrary library(ZORVA_LIBRARY);
            Client client(library.create());
            CIMOMHandle handle(server);
            client.provider().initialize(handle);
            // Each load starts with an empty table.
            ASSERT_TRUE(client.names("ZORVA_UsbHc_DiagResult").empty()) << cycle;
            ASSERT_EQ(client.invoke("RunTest", elementParameter("usb1")), "uint32 0") << cycle;
            ASSERT_EQ(client.names("ZORVA_UsbHc_DiagResult").size(), 1U) << cycle;
            client.provider().terminate();
        }
        ASSERT_FALSE(isMapped()) << cycle;
    }
    testing::internal::GetCapturedStdout();
}

TEST(LoadAndUnload, ReturnedInstancesOutliveTheLibrary) {
    LogFolder folder;
    PrivateDeviceList::show(hubList);
    const auto server = std::make_shared<TestServer>();
    server->addHost();
    server->addElement("usb1");
    std::vector<CIMInstance> results;
    testing::internal::CaptureStdout();
    {
        const LoadedLibrary library(ZORVA_LIBRARY);
        Client client(library.create());
        CIMOMHandle handle(server);
        client.provider().initialize(handle);
        client.invoke("RunTest", elementParameter("usb1"));
        results = client.instances("ZORVA_UsbHc_DiagResult");
    }
    testing::internal::GetCapturedStdout();
    ASSERT_FALSE(isMapped());
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(propertyText(results[0], "TestState"), "uint16 2");
    EXPECT_EQ(text(results[0].getPath()), resultPathText(usbTestName, "usb1"));
    results.clear();
}

}  // namespace
}  // namespace Pegasus
