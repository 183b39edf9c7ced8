// SPDX-License-Identifier: MIT
// The debug log of a build that is configured with an empty log name.
#include <filesystem>

#include <gtest/gtest.h>

#include "diag/DebugLogFile.h"
#include "diag/ZORVA_DiagUtils.h"
#include "tests/support/LogFolder.h"

namespace Pegasus {

// In place of the library's own, which the linker leaves out.
const char* const debugLogName = "";

namespace {

TEST(LogTurnedOff, NothingIsWritten) {
    LogFolder folder;
    ZORVA_DiagUtils::DEBUG_PRINT("a");
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

}  // namespace
}  // namespace Pegasus
