// SPDX-License-Identifier: MIT
// Compares the reports of all available device lists with those of an independent program.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/provider/LoadedProvider.h"

namespace Pegasus {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

// The report that the independent program computes for a list.
Texts expectedReport(const fs::path& list) {
    const std::string command =
        std::string(ZORVA_EXPECTED_REPORT) + " results '" + list.string() + "'";
    FILE* const pipe = popen(command.c_str(), "r");
    std::string output;
    for (int byte = std::fgetc(pipe); byte != EOF; byte = std::fgetc(pipe)) {
        output += static_cast<char>(byte);
    }
    EXPECT_EQ(pclose(pipe), 0) << command;
    Texts all;
    for (std::string::size_type start = 0; start < output.size();) {
        const auto end = output.find('\n', start);
        all.push_back(output.substr(start, end - start));
        start = end + 1;
    }
    return all;
}

class Reports : public LoadedProvider {
protected:
    // Compares the report of every list in the folder. Returns the number of lists.
    int compareAll(const fs::path& folder) {
        int lists = 0;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
            if (entry.path().extension() == ".txt") {
                compare(entry.path());
                ++lists;
            }
        }
        return lists;
    }

private:
    void compare(const fs::path& list) {
        PrivateDeviceList::show(contentOf(list));
        ASSERT_EQ(client_.invoke("RunTest", elementParameter("usb1")), "uint32 0") << list;
        const CIMInstance result = client_.instances("ZORVA_UsbHc_DiagResult")[0];
        EXPECT_EQ(propertyText(result, "TestState"), "uint16 2") << list;
        EXPECT_EQ(lines(result.getProperty(result.findProperty("TestResults")).getValue()),
                  expectedReport(list))
            << list;
    }
};

TEST_F(Reports, AreAsExpectedForTheSamples) {
    EXPECT_GT(compareAll(ZORVA_SAMPLES), 0);
}

TEST_F(Reports, AreAsExpectedForRecordedLists) {
    if (!fs::is_directory(ZORVA_CAPTURES)) {
        GTEST_SKIP() << "no recorded device lists at " << ZORVA_CAPTURES;
    }
    EXPECT_GT(compareAll(ZORVA_CAPTURES), 0);
}

}  // namespace
}  // namespace Pegasus
