// SPDX-License-Identifier: MIT
// The fixture of tests of the installed library.
#pragma once

#include <memory>

#include <gtest/gtest.h>

#include "tests/support/Client.h"
#include "tests/support/KnownTexts.h"
#include "tests/support/LoadedLibrary.h"
#include "tests/support/LogFolder.h"
#include "tests/support/Parameters.h"
#include "tests/support/PrivateDeviceList.h"
#include "tests/support/TestServer.h"
#include "tests/support/Thrown.h"

namespace Pegasus {

/// The library, loaded for this test, with a provider that is initialized with a server of two
/// elements, "usb1" and "usb2". Standard output is captured.
class LoadedProvider : public testing::Test {
protected:
    LoadedProvider() {
        server_->addHost();
        server_->addElement("usb1");
        server_->addElement("usb2");
        CIMOMHandle handle(server_);
        client_.provider().initialize(handle);
        PrivateDeviceList::show("");
        testing::internal::CaptureStdout();
    }
    ~LoadedProvider() override { testing::internal::GetCapturedStdout(); }

    LogFolder folder_;
    std::shared_ptr<TestServer> server_ = std::make_shared<TestServer>();
    LoadedLibrary library_{ZORVA_LIBRARY};
    Client client_{library_.create()};
};

/// A list of one hub.
constexpr char hubList[] =
    "T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=12  MxCh= 2\n"
    "B:  Alloc=  0/900 us ( 0%), #Int=  0, #Iso=  0\n"
    "D:  Ver= 1.10 Cls=09(hub  ) Sub=00 Prot=00 MxPS= 8 #Cfgs=  1\n"
    "P:  Vendor=1d6b ProdID=0001 Rev= 2.04\n"
    "S:  Product=USB OHCI Root Hub\n"
    "S:  SerialNumber=c4846000\n"
    "C:* #Ifs= 1 Cfg#= 1 Atr=40 MxPwr=  0mA\n"
    "I:  If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub\n"
    "E:  Ad=81(I) Atr=03(Int.) MxPS=   8 Ivl=255ms\n";

}  // namespace Pegasus
