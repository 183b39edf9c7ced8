// SPDX-License-Identifier: MIT
// The status and the message of each exception.
#include <Pegasus/Provider/ProviderExceptions.h>
#include <gtest/gtest.h>

#include "tests/support/ObjectModelText.h"

using namespace Pegasus;

namespace {

template <class ProviderException>
std::string seenAs() {
    try {
        throw ProviderException("Some text ");
    } catch (const CIMException& exception) {
        return std::to_string(exception.getCode()) + " " + text(exception.getMessage());
    }
}

TEST(ProviderExceptions, BadReferenceIsNotFound) {
    EXPECT_EQ(seenAs<BadReference>(), "6 bad reference: Some text ");
}

TEST(ProviderExceptions, NoSuchPropertyHasItsOwnStatus) {
    EXPECT_EQ(seenAs<NoSuchProperty>(), "12 no such property: Some text ");
}

TEST(ProviderExceptions, NotImplementedIsNotSupported) {
    EXPECT_EQ(seenAs<NotImplemented>(), "7 not implemented: Some text ");
}

TEST(ProviderExceptions, NotSupportedHasItsTextUnchanged) {
    EXPECT_EQ(seenAs<NotSupported>(), "7 Some text ");
}

}  // namespace
