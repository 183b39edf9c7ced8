// SPDX-License-Identifier: MIT
#include <Pegasus/Provider/CIMOMHandle.h>
#include <gtest/gtest.h>

#include "tests/support/TestServer.h"
#include "tests/support/Thrown.h"

using namespace Pegasus;

namespace {

const CIMNamespaceName nameSpace("root/kavex");

CIMInstance element(CIMOMHandle& handle, const char* deviceId) {
    const CIMObjectPath path(
        String((std::string("ZORVA_UsbHc.DeviceID=\"") + deviceId + "\"").c_str()));
    return handle.getInstance(OperationContext(), nameSpace, path, false, false, false,
                              CIMPropertyList());
}

TEST(CIMOMHandle, EveryCallWithoutAConnectionThrows) {
    CIMOMHandle unconnected;
    const std::string message = "the provider is not connected to a CIM server";
    EXPECT_EQ(thrownBy<CIMException>([&] {
                  unconnected.enumerateInstanceNames(OperationContext(), nameSpace,
                                                     CIMName("ZORVA_UsbHc"));
              }),
              message);
    EXPECT_EQ(thrownBy<CIMException>([&] { element(unconnected, "usb1"); }), message);
    EXPECT_EQ(thrownBy<CIMException>([&] { unconnected.disallowProviderUnload(); }), message);
}

TEST(CIMOMHandle, ExceptionWithoutAConnectionHasStatusFailed) {
    try {
        CIMOMHandle().disallowProviderUnload();
        FAIL() << "nothing was thrown";
    } catch (const CIMException& exception) {
        EXPECT_EQ(exception.getCode(), CIM_ERR_FAILED);
    }
}

TEST(CIMOMHandle, AllCopiesUseTheSameConnection) {
    const auto server = std::make_shared<TestServer>();
    server->addElement("usb1");
    CIMOMHandle handle(server);
    CIMOMHandle copy = handle;
    CIMOMHandle assigned;
    assigned = handle;
    EXPECT_EQ(propertyText(element(copy, "usb1"), "DeviceID"), "string usb1");
    EXPECT_EQ(texts(assigned.enumerateInstanceNames(OperationContext(), nameSpace,
                                                    CIMName("ZORVA_UsbHc"))),
              std::vector<std::string>{"root/kavex:ZORVA_UsbHc.DeviceID=\"usb1\""});
    handle.disallowProviderUnload();
    copy.disallowProviderUnload();
    EXPECT_EQ(server->calls().size(), 2U);
    EXPECT_EQ(server->unloadsDisallowed(), 2);
}

}  // namespace
