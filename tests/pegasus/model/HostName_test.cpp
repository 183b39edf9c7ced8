// SPDX-License-Identifier: MIT
#include "pegasus/model/HostName.h"

#include <gtest/gtest.h>

using namespace Pegasus;

namespace {

TEST(HostName, AcceptsNamesAndAddressesWithAndWithoutPort) {
    for (const char* const host :
         {"h", "H-1", "_h", "3com", "1.2.3.com", "a.b-c.d_e", "255.255.255.255", "10.0.0.1:1",
          "h:65535", "[fe80::1]", "[::]:", "localhost.localdomain:5988"}) {
        EXPECT_TRUE(isHostName(host)) << host;
    }
}

TEST(HostName, RejectsEverythingElse) {
    for (const char* const host :
         {"",   ".",    ".h",        "h..i",      "a.-b",    "h/",       "h@i",      "h i",
          "5",  "a.5",  "256.0.0.1", "1.2.3.4.5", "h:65536", "h:123456", "h:x",      "h:1:2",
          ":1", "[::1", "[]",        "[1.2.3.4]", "[::1]x",  "::1",      "h\xC3\xA9"}) {
        EXPECT_FALSE(isHostName(host)) << host;
    }
    EXPECT_FALSE(isHostName(String("h\0i", 3)));
}

}  // namespace
