// SPDX-License-Identifier: MIT
#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/Exception.h>

#include "tests/pegasus/model/recorded.h"

using namespace Pegasus;

namespace {

TEST(CIMStatusCode, HasANumberAndAName) {
    struct Case {
        const char* row;
        int code;
        const char* name;
    };
    for (const Case& each : {Case{"exception-001", 0, "CIM_ERR_SUCCESS"},
                             {"exception-002", 1, "CIM_ERR_FAILED"},
                             {"exception-003", 2, "CIM_ERR_ACCESS_DENIED"},
                             {"exception-004", 3, "CIM_ERR_INVALID_NAMESPACE"},
                             {"exception-005", 4, "CIM_ERR_INVALID_PARAMETER"},
                             {"", 5, "CIM_ERR_INVALID_CLASS"},
                             {"", 6, "CIM_ERR_NOT_FOUND"},
                             {"exception-008", 7, "CIM_ERR_NOT_SUPPORTED"},
                             {"", 8, "CIM_ERR_CLASS_HAS_CHILDREN"},
                             {"exception-010", 9, "CIM_ERR_CLASS_HAS_INSTANCES"},
                             {"exception-011", 10, "CIM_ERR_INVALID_SUPERCLASS"},
                             {"exception-012", 11, "CIM_ERR_ALREADY_EXISTS"},
                             {"exception-013", 12, "CIM_ERR_NO_SUCH_PROPERTY"},
                             {"exception-014", 13, "CIM_ERR_TYPE_MISMATCH"},
                             {"exception-015", 14, "CIM_ERR_QUERY_LANGUAGE_NOT_SUPPORTED"},
                             {"exception-016", 15, "CIM_ERR_INVALID_QUERY"},
                             {"exception-017", 16, "CIM_ERR_METHOD_NOT_AVAILABLE"},
                             {"exception-018", 17, "CIM_ERR_METHOD_NOT_FOUND"},
                             {"", 20, "CIM_ERR_NAMESPACE_NOT_EMPTY"},
                             {"", 21, "CIM_ERR_INVALID_ENUMERATION_CONTEXT"},
                             {"", 22, "CIM_ERR_INVALID_OPERATION_TIMEOUT"},
                             {"", 23, "CIM_ERR_PULL_HAS_BEEN_ABANDONED"},
                             {"", 24, "CIM_ERR_PULL_CANNOT_BE_ABANDONED"},
                             {"", 25, "CIM_ERR_FILTERED_ENUMERATION_NOT_SUPPORTED"},
                             {"", 26, "CIM_ERR_CONTINUATION_ON_ERROR_NOT_SUPPORTED"},
                             {"exception-019", 27, "CIM_ERR_SERVER_LIMITS_EXCEEDED"},
                             {"exception-020", 28, "CIM_ERR_SERVER_IS_SHUTTING_DOWN"}}) {
        ROW(each.row);
        const auto code = static_cast<CIMStatusCode>(each.code);
        EXPECT_STREQ(cimStatusCodeToString(code), each.name);
        EXPECT_EQ(CIMException(code).getMessage(), "");
        EXPECT_EQ(CIMException(code, "txt").getMessage(), "txt");
        EXPECT_EQ(CIMException(code, "txt").getCode(), each.code);
    }
}

TEST(CIMStatusCode, HasANameEvenIfUnknown) {
    ROW("exception-021");
    EXPECT_STREQ(cimStatusCodeToString(static_cast<CIMStatusCode>(99)),
                 "Unrecognized CIM status code");
}

}  // namespace
