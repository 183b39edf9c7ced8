// SPDX-License-Identifier: MIT
#include "cli/ReportedListJson.h"

#include <gtest/gtest.h>

#include "tests/cli/CompactJson.h"

namespace usbhcdiag {
namespace {

std::string written(const ReportedList* list) {
    return compactJson([list](JsonWriter& json) {
        json.beginObject();
        writeReportedList(json, list);
        json.endObject();
    });
}

TEST(ReportedListJson, HasWhatIsLeftOutAndWhatIsMixed) {
    const ReportedList reported(
        "T:  Bus=01 Lev=00 Prnt=00 Port=00\n"
        "P:  Vendor=1d6b ProdID=0001 Rev= 6.01\n"
        "S:  Product=\xFFHub\n"
        "T:  Bus=02 Lev=00\n"
        "E:  Ad=81(I)\n");
    EXPECT_EQ(written(&reported), compactJson(R"({
        "devices_in_list": 2,
        "devices_in_report": 1,
        "left_out": [{
            "position": 1, "device": "usb1", "name": "\uFFFDHub", "id": "1d6b:0001",
            "reason": "no_endpoint",
            "text": "no endpoint; its fields stand in the block of a device without name at usb2"
        }],
        "mixed": [{
            "position": 2, "device": "usb2", "name": null, "id": null,
            "text": "its block has vendor ID, product ID and revision, product name of \"\uFFFDHub\" (1d6b:0001) at usb1"
        }]
    })"));
}

TEST(ReportedListJson, IsNullWhereTheListIsNotKnown) {
    EXPECT_EQ(written(nullptr),
              R"({"devices_in_list":null,"devices_in_report":null,"left_out":null,"mixed":null})");
}

}  // namespace
}  // namespace usbhcdiag
