// SPDX-License-Identifier: MIT
// The main() of test programs that read device lists at their real path.
#include <gtest/gtest.h>

#include "tests/support/PrivateDeviceList.h"

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    PrivateDeviceList::enterOrExit();
    return RUN_ALL_TESTS();
}
