// SPDX-License-Identifier: MIT
#include "wire/cimxml/CimStatus.h"

#include <stdexcept>

#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

using namespace wire;

namespace {

template <typename Thrown>
std::string failureOf(const Thrown& thrown) {
    try {
        throw thrown;
    } catch (...) {
        const CimFailure failure = failureOfException();
        return std::to_string(failure.code) + " " + failure.description;
    }
}

}  // namespace

TEST(CimStatus, putsTheNameInFrontOfTheText) {
    EXPECT_EQ(describeStatus(6, "VT_Item.Id=\"x\""), "CIM_ERR_NOT_FOUND: VT_Item.Id=\"x\"");
    EXPECT_EQ(describeStatus(7, ""), "CIM_ERR_NOT_SUPPORTED");
    EXPECT_EQ(describeStatus(99, "odd"), "Unrecognized CIM status code \"99\": odd");
}

TEST(CimStatus, cimExceptionsKeepTheirCode) {
    EXPECT_EQ(failureOf(Pegasus::CIMException(Pegasus::CIM_ERR_NOT_SUPPORTED, "text")),
              "7 CIM_ERR_NOT_SUPPORTED: text");
    EXPECT_EQ(failureOf(Pegasus::CIMException(Pegasus::CIM_ERR_ACCESS_DENIED)),
              "2 CIM_ERR_ACCESS_DENIED");
}

TEST(CimStatus, everythingElseIsAFailure) {
    EXPECT_EQ(failureOf(Pegasus::TypeMismatchException()), "1 CIM_ERR_FAILED: type mismatch");
    EXPECT_EQ(failureOf(std::out_of_range("beyond")), "1 CIM_ERR_FAILED: beyond");
    EXPECT_EQ(failureOf(7), "1 CIM_ERR_FAILED: Unknown error.");
}

TEST(CimStatus, foreignTextsThatAreNotUtf8StayOutside) {
    EXPECT_EQ(failureOf(std::runtime_error("name \x93")),
              "1 CIM_ERR_FAILED: (a text that is not UTF-8)");
}
