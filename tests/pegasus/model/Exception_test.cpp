// SPDX-License-Identifier: MIT
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/InternalException.h>

#include "tests/pegasus/model/recorded.h"

using namespace Pegasus;

namespace {

TEST(Exception, AppendsItsTextToTheTextOfItsClass) {
    {
        ROW("exception-024");
        EXPECT_EQ(Exception("text").getMessage(), "text");
    }
    {
        ROW("exception-025");
        EXPECT_EQ(IndexOutOfBoundsException().getMessage(), "index out of bounds");
    }
    {
        ROW("exception-026");
        EXPECT_EQ(TypeMismatchException().getMessage(), "type mismatch");
    }
    {
        ROW("exception-027");
        EXPECT_EQ(TypeMismatchException("t").getMessage(), "type mismatch: t");
    }
    {
        ROW("exception-028");
        EXPECT_EQ(UninitializedObjectException().getMessage(), "uninitialized object");
    }
    {
        ROW("exception-029");
        EXPECT_EQ(AlreadyExistsException("t").getMessage(), "already exists: t");
    }
    {
        ROW("exception-030");
        EXPECT_EQ(InvalidNameException("t").getMessage(), "The CIM name is not valid: t");
    }
    {
        ROW("exception-033");
        EXPECT_EQ(InvalidDateTimeFormatException().getMessage(), "invalid datetime format");
    }
    {
        ROW("exception-034");
        EXPECT_EQ(DateTimeOutOfRangeException("t").getMessage(), "DateTime is out of range : t");
    }
    {
        ROW("exception-035");
        EXPECT_EQ(MalformedObjectNameException("t").getMessage(), "malformed object name: t");
    }
    {
        ROW("exception-038");
        EXPECT_EQ(NullPointer().getMessage(), "null pointer");
    }
    EXPECT_EQ(InvalidNamespaceNameException("t").getMessage(), "invalid CIM namespace name: t");
    EXPECT_EQ(DynamicCastFailedException().getMessage(), "dynamic cast failed");
}

TEST(Exception, IsCopiedWithItsText) {
    ROW("exception-052");
    const CIMException original(CIM_ERR_FAILED, "a");
    const CIMException copy(original);
    CIMException assigned;
    assigned = copy;
    EXPECT_EQ(assigned.getCode(), CIM_ERR_FAILED);
    EXPECT_EQ(assigned.getMessage(), "a");
}

TEST(CIMException, IsSuccessWithoutATextByDefault) {
    ROW("exception-022");
    EXPECT_EQ(CIMException().getCode(), 0);
    EXPECT_EQ(CIMException().getMessage(), "");
}

TEST(CIMException, IsCaughtAsAnException) {
    try {
        throw CIMException(CIM_ERR_NOT_FOUND, "gone");
    } catch (const Exception& exception) {
        EXPECT_EQ(exception.getMessage(), "gone");
    }
}

}  // namespace
