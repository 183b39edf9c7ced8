// SPDX-License-Identifier: MIT
#include "devicelist/Device.h"

#include <gtest/gtest.h>

namespace devicelist {
namespace {

TEST(Interface, IsTakenByTheDriverThatIsNamed) {
    Interface interface;
    EXPECT_EQ(interface.takenBy(), std::nullopt);
    interface.driver = "";
    EXPECT_EQ(interface.takenBy(), std::nullopt);
    interface.driver = "(none)";
    EXPECT_EQ(interface.takenBy(), std::nullopt);
    interface.driver = "usbhid";
    EXPECT_EQ(interface.takenBy(), "usbhid");
}

}  // namespace
}  // namespace devicelist
