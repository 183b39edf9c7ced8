// SPDX-License-Identifier: MIT
#include "diag/ZORVA_DiagUtils.h"

#include <memory>

#include <gtest/gtest.h>

#include "tests/support/LogFolder.h"
#include "tests/support/ObjectModelText.h"

namespace Pegasus {
namespace {

TEST(ZorvaDiagUtils, MessagesAreAppendedUnchanged) {
    LogFolder folder;
    ZORVA_DiagUtils::DEBUG_PRINT("a");
    ZORVA_DiagUtils::DEBUG_PRINT("b\n");
    EXPECT_EQ(folder.take(), "ab\n");
}

TEST(ZorvaDiagUtils, ControlCharactersAreAppendedAsTheyAre) {
    LogFolder folder;
    ZORVA_DiagUtils::DEBUG_PRINT("a\x1B\r\tb\x7F\n\n");
    EXPECT_EQ(folder.take(), "a\x1B\r\tb\x7F\n\n");
}

TEST(ZorvaDiagUtils, MessageIsWrittenInUtf8) {
    LogFolder folder;
    ZORVA_DiagUtils::DEBUG_PRINT(String("  Ger\xC3\xA4t \xE2\x82\xAC\n"));
    EXPECT_EQ(folder.take(), "  Ger\xC3\xA4t \xE2\x82\xAC\n");
}

TEST(ZorvaDiagUtils, LogIsCreatedInTheCurrentWorkingDirectory) {
    LogFolder first;
    ZORVA_DiagUtils::DEBUG_PRINT("first");
    {
        LogFolder second;
        ZORVA_DiagUtils::DEBUG_PRINT("second");
        EXPECT_EQ(second.take(), "second");
    }
    EXPECT_EQ(first.take(), "first");
}

TEST(ZorvaDiagUtils, ObjectMayBeDerivedFromAndDeletedByItsBase) {
    class Derived : public ZORVA_DiagUtils {
    public:
        explicit Derived(bool& isGone) : isGone_(isGone) {}
        ~Derived() override { isGone_ = true; }

    private:
        bool& isGone_;
    };
    bool isGone = false;
    std::unique_ptr<ZORVA_DiagUtils> object = std::make_unique<Derived>(isGone);
    object.reset();
    EXPECT_TRUE(isGone);
}

TEST(ZorvaDiagUtils, CurrentDateTimeIsNow) {
    const CIMDateTime before = CIMDateTime::getCurrentDateTime();
    const CIMDateTime now = ZORVA_DiagUtils::getCurrentDateTime();
    EXPECT_FALSE(now.isInterval());
    EXPECT_GE(CIMDateTime::getDifference(before, now), 0);
    EXPECT_GE(CIMDateTime::getDifference(now, CIMDateTime::getCurrentDateTime()), 0);
}

}  // namespace
}  // namespace Pegasus
