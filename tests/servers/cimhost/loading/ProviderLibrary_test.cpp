// SPDX-License-Identifier: MIT
// A library that is no provider is refused with a message that names it.
#include "servers/cimhost/loading/ProviderLibrary.h"

#include <string>

#include <gtest/gtest.h>

#include "contract/Names.h"

namespace cimhost {
namespace {

template <class Action>
std::string error(Action action) {
    try {
        action();
    } catch (const ProviderLibraryError& error) {
        return error.what();
    }
    return "no error";
}

TEST(ProviderLibraryTest, AMissingLibraryIsNamed) {
    EXPECT_EQ(error([] { ProviderLibrary("/nonexistent/libX.so"); }),
              "cannot load the provider library: /nonexistent/libX.so: cannot open shared object "
              "file: No such file or directory");
    EXPECT_EQ(error([] { ProviderLibrary("libc.so.6"); }),
              "cannot load the provider library: ./libc.so.6: cannot open shared object file: No "
              "such file or directory")
        << "a bare name means a file here, not one of the system's";
}

TEST(ProviderLibraryTest, AFileThatIsNoLibraryIsNamed) {
    EXPECT_EQ(error([] { ProviderLibrary(ZORVA_THIS_FILE); }),
              "cannot load the provider library: " ZORVA_THIS_FILE ": invalid ELF header");
}

TEST(ProviderLibraryTest, ALibraryWithoutFactoryIsNamed) {
    EXPECT_EQ(error([] { ProviderLibrary(ZORVA_WITHOUT_FACTORY); }), ZORVA_WITHOUT_FACTORY
              " is no provider library: it has no function PegasusCreateProvider");
}

TEST(ProviderLibraryTest, ALibraryThatReturnsNullIsNamed) {
    const ProviderLibrary library(ZORVA_RETURNING_NULL);
    EXPECT_EQ(error([&] { library.createProvider("Some_Provider"); }),
              ZORVA_RETURNING_NULL " has no provider named Some_Provider");
}

TEST(ProviderLibraryTest, TheProjectsOwnLibraryHasItsProvider) {
    const ProviderLibrary library(ZORVA_OWN_LIBRARY);
    EXPECT_NE(library.createProvider(contract::provider), nullptr);
    EXPECT_NE(error([&] { library.createProvider("Some_Provider"); }), "no error");
}

}  // namespace
}  // namespace cimhost
