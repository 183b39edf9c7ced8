// SPDX-License-Identifier: MIT
// The fixture of tests of the provider library's classes.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/KnownTexts.h"
#include "tests/support/LogFolder.h"
#include "tests/support/Parameters.h"
#include "tests/support/ResultTable.h"
#include "tests/support/TestServer.h"
#include "tests/support/Thrown.h"

namespace Pegasus {

/// A server with a host and no elements, an empty result table, and an empty log.
class LibraryTest : public testing::Test {
protected:
    LibraryTest() { server_->addHost(); }

    /// The log of making one test table, which looks up the host system.
    static std::string testTableLog() {
        return "   In ZORVA_UsbHc_DiagTest constructor\n"
               "      In ZORVA_UsbHc_DiagTest::buildTests\n"
               "  in SystemInfo \n"
               "      Retrieved system information...building tests...\n"
               "      Leaving ZORVA_UsbHc_DiagTest::buildTests\n"
               "   Leaving ZORVA_UsbHc_DiagTest constructor\n";
    }

    Texts callTexts() const {
        Texts all;
        for (const TestServer::Call& call : server_->calls()) {
            all.push_back(call.text);
        }
        return all;
    }

    LogFolder folder_;
    ResultTable table_;
    std::shared_ptr<TestServer> server_ = std::make_shared<TestServer>();
    CIMOMHandle handle_{server_};
};

}  // namespace Pegasus
