// SPDX-License-Identifier: MIT
#include "wire/http/ListenAddress.h"

#include <stdexcept>

#include <gtest/gtest.h>

using namespace wire;

TEST(ListenAddress, takesLoopbackAddresses) {
    EXPECT_EQ(ListenAddress("127.0.0.1", 5988).address(), "127.0.0.1");
    EXPECT_EQ(ListenAddress("127.0.0.1", 5988).port(), 5988);
    EXPECT_EQ(ListenAddress("127.8.9.10", 0).address(), "127.8.9.10");
    EXPECT_EQ(ListenAddress("localhost", 0).address(), "127.0.0.1");
    EXPECT_TRUE(ListenAddress("::1", 0).isIpv6());
    EXPECT_FALSE(ListenAddress("127.0.0.1", 0).isIpv6());
}

TEST(ListenAddress, refusesEverythingElseAndPointsToOpenPegasus) {
    for (const char* address :
         {"0.0.0.0", "192.168.1.1", "128.0.0.1", "::", "::2", "::ffff:127.0.0.1", "example.org", "",
          "127.0.0.1x", "127.1", "[::1]"}) {
        try {
            const ListenAddress refused(address, 0);
            FAIL() << address;
        } catch (const std::invalid_argument& error) {
            EXPECT_EQ(error.what(),
                      "\"" + std::string(address) +
                          "\" is not a loopback address (127.0.0.1, ::1): this server is for the "
                          "machine it runs on. To be reached from other machines, install the "
                          "provider into OpenPegasus.");
        }
    }
}
