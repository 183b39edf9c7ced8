// SPDX-License-Identifier: MIT
// main() of test programs that read the device list at its real path.
#include <gtest/gtest.h>

#include "tests/support/PrivateDeviceList.h"

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    PrivateDeviceList::enterOrExit();
    return RUN_ALL_TESTS();
}
