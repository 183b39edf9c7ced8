// SPDX-License-Identifier: MIT
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/Char16.h>

#include "tests/pegasus/model/recorded.h"

using namespace Pegasus;

namespace {

TEST(CIMType, HasANumberAndAName) {
    ROW("type-001");
    std::string numbers;
    for (int type = CIMTYPE_BOOLEAN; type <= CIMTYPE_INSTANCE; ++type) {
        numbers += cimTypeToString(static_cast<CIMType>(type)) + ("=" + std::to_string(type)) + " ";
    }
    EXPECT_EQ(numbers,
              "boolean=0 uint8=1 sint8=2 uint16=3 sint16=4 uint32=5 sint32=6 uint64=7 sint64=8 "
              "real32=9 real64=10 char16=11 string=12 datetime=13 reference=14 object=15 "
              "instance=16 ");
}

TEST(CIMType, HasTheSizeThatOpenPegasusHas) {
    {
        ROW("type-002");
        EXPECT_EQ(sizeof(Boolean), 1U);
        EXPECT_EQ(sizeof(Char16), 2U);
    }
    EXPECT_EQ(sizeof(Uint8), 1U);
    EXPECT_EQ(sizeof(Uint16), 2U);
    EXPECT_EQ(sizeof(Uint32), 4U);
    EXPECT_EQ(sizeof(Uint64), 8U);
    EXPECT_EQ(sizeof(Real32), 4U);
    EXPECT_EQ(sizeof(Real64), 8U);
}

TEST(Char16, ComparesWithCharacters) {
    EXPECT_TRUE(Char16('a') == Char16(97));
    EXPECT_TRUE(Char16('a') == 'a');
    EXPECT_TRUE('a' == Char16('a'));
    EXPECT_TRUE(Char16('a') != Char16('b'));
    EXPECT_TRUE(Char16('a') != 'b');
    EXPECT_TRUE('b' != Char16('a'));
    EXPECT_TRUE(Char16(0xE9) == '\xE9');
    EXPECT_EQ(Uint16(Char16()), 0);
}

}  // namespace
