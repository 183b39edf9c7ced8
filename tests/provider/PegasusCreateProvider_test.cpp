// SPDX-License-Identifier: MIT
#include "provider/PegasusCreateProvider.h"

#include <memory>

#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>
#include <gtest/gtest.h>

#include "tests/support/LogFolder.h"
#include "tests/support/TestServer.h"

namespace Pegasus {
namespace {

using Created = std::unique_ptr<CIMProvider>;

TEST(PegasusCreateProviderTest, NameInAnyCaseCreatesTheProvider) {
    LogFolder folder;
    for (const char* name : {"ZORVA_UsbHc_DiagProvider", "zorva_usbhc_diagprovider",
                             "ZORVA_USBHC_DIAGPROVIDER", "zOrVa_uSbHc_dIaGpRoViDeR"}) {
        EXPECT_TRUE(Created(PegasusCreateProvider(name))) << name;
    }
}

TEST(PegasusCreateProviderTest, AnyOtherNameIsNull) {
    LogFolder folder;
    for (const char* name : {"", "ZORVA_UsbHc_DiagProviderX", "ZORVA_UsbHc_DiagProvide",
                             " ZORVA_UsbHc_DiagProvider", "ZORVA_UsbHc_DiagTest"}) {
        EXPECT_FALSE(Created(PegasusCreateProvider(name))) << name;
    }
}

TEST(PegasusCreateProviderTest, EachCallReturnsANewObject) {
    LogFolder folder;
    const Created first(PegasusCreateProvider("ZORVA_UsbHc_DiagProvider"));
    const Created second(PegasusCreateProvider("ZORVA_UsbHc_DiagProvider"));
    EXPECT_NE(first.get(), second.get());
}

TEST(PegasusCreateProviderTest, ProviderServesInstancesAndMethods) {
    LogFolder folder;
    const Created provider(PegasusCreateProvider("ZORVA_UsbHc_DiagProvider"));
    EXPECT_NE(dynamic_cast<CIMInstanceProvider*>(provider.get()), nullptr);
    EXPECT_NE(dynamic_cast<CIMMethodProvider*>(provider.get()), nullptr);
}

TEST(PegasusCreateProviderTest, CreationIsLogged) {
    LogFolder folder;
    Created provider(PegasusCreateProvider("zorva_usbhc_diagprovider"));
    EXPECT_EQ(folder.take(),
              "   Creating Provider \n"
              "   In checking provider :ZORVA_UsbHc_DiagProvider \n"
              "   In ZORVA_UsbHc_DiagProvider constructor\n");
    provider.reset();
    EXPECT_EQ(folder.take(), "");
}

TEST(PegasusCreateProviderTest, CallWithAnotherNameIsLogged) {
    LogFolder folder;
    PegasusCreateProvider("another");
    EXPECT_EQ(folder.take(), "   Creating Provider \n");
}

}  // namespace
}  // namespace Pegasus
