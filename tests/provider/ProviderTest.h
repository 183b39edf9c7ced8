// SPDX-License-Identifier: MIT
// The fixture of tests of the provider object.
#pragma once

#include "provider/PegasusCreateProvider.h"
#include "tests/support/Client.h"
#include "tests/support/LibraryTest.h"
#include "usbhc/ZORVA_UsbHc_DiagResult.h"

namespace Pegasus {

/// A new provider, initialized with a server that has a host and the elements "usb1" and "usb2".
class ProviderTest : public LibraryTest {
protected:
    ProviderTest() {
        server_->addElement("usb1");
        server_->addElement("usb2");
        client_.provider().initialize(handle_);
        folder_.take();
    }

    /// Adds a result to the table as a run does.
    void addResult(const char* deviceId, const char* testName = usbTestName) {
        ZORVA_UsbHc_DiagResult().buildTestResult(handle_, testName, deviceId);
        folder_.take();
        server_->forgetCalls();
    }

    static CIMObjectPath path(const std::string& text) {
        return CIMObjectPath(String(text.c_str()));
    }

    Client client_{PegasusCreateProvider("ZORVA_UsbHc_DiagProvider")};
};

}  // namespace Pegasus
