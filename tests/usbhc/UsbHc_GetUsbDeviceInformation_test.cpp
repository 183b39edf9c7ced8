// SPDX-License-Identifier: MIT
// The device information test, with lists at the real path.
#include "tests/support/LibraryTest.h"
#include "tests/support/PrivateDeviceList.h"
#include "usbhc/ZORVA_UsbHc_DiagRunTestMethod.h"

namespace Pegasus {
namespace {

std::string block(const std::string& number, const std::string& protocol = "01") {
    return "T:  Bus=01 Lev=00 Prnt=00 Port=" + number +
           " Cnt=00 Dev#=  1 Spd=12  MxCh= 2\n"
           "I:* If#= 0 Alt= 0 #EPs= 1 Cls=03(HID  ) Sub=01 Prot=" +
           protocol +
           " Driver=usbhid\n"
           "E:  Ad=81(I) Atr=03(Int.) MxPS=   8 Ivl=255ms\n";
}

class DeviceInformationTest : public LibraryTest {
protected:
    DeviceInformationTest() {
        server_->addElement("usb1");
        run_.verifyMSE();
        run_.doResultsExist();
        folder_.take();
    }

    Texts report(const std::string& list) {
        PrivateDeviceList::show(list);
        return report();
    }

    Texts report() {
        testing::internal::CaptureStdout();
        run_.UsbHc_GetUsbDeviceInformation("");
        output_ = testing::internal::GetCapturedStdout();
        return lines(run_.retrieveResultProperty("TestResults"));
    }

    std::string state() { return text(run_.retrieveResultProperty("TestState")); }

    ZORVA_UsbHc_DiagRunTestMethod run_{handle_, usbTestName, elementParameter("usb1")};
    std::string output_;
};

TEST_F(DeviceInformationTest, NoDevicesAddNoLinesAndPass) {
    EXPECT_EQ(report(""), Texts());
    EXPECT_EQ(state(), "uint16 2");
}

TEST_F(DeviceInformationTest, MissingListAddsNoLinesAndPasses) {
    const PrivateDeviceList::Missing missing;
    EXPECT_EQ(report(), Texts());
    EXPECT_EQ(state(), "uint16 2");
    EXPECT_EQ(output_,
              "test code for usb host controller \n"
              "could not open usb device file \n"
              "could not read file \n");
}

TEST_F(DeviceInformationTest, UnreadableListAddsNoLinesAndPasses) {
    const PrivateDeviceList::Unreadable unreadable;
    EXPECT_EQ(report(), Texts());
    EXPECT_EQ(state(), "uint16 2");
}

TEST_F(DeviceInformationTest, FolderInPlaceOfTheListAddsNoLinesAndPasses) {
    const PrivateDeviceList::Folder folder;
    EXPECT_EQ(report(), Texts());
    EXPECT_EQ(state(), "uint16 2");
}

TEST_F(DeviceInformationTest, BlocksAreInTheOrderOfTheListAndEndWithTenBlanks) {
    const Texts all = report(block("05") + block("04") + block("06"));
    ASSERT_EQ(all.size(), 48U);
    EXPECT_EQ(all[11], "Port on Device                05 ");
    EXPECT_EQ(all[15], "          ");
    EXPECT_EQ(all[27], "Port on Device                04 ");
    EXPECT_EQ(all[31], "          ");
    EXPECT_EQ(all[43], "Port on Device                06 ");
    EXPECT_EQ(all[47], "          ");
    EXPECT_EQ(state(), "uint16 2");
}

TEST_F(DeviceInformationTest, DeviceWithoutANamedProtocolHasFifteenLines) {
    EXPECT_EQ(report(block("00", "99")).size(), 15U);
    EXPECT_EQ(report(block("00", "01")).size(), 15U + 16U);  // appended to those of the first run
}

TEST_F(DeviceInformationTest, DeviceWithOnlyItsTopologyIsReported) {
    const Texts all = report("T:  x\nE:\n");
    EXPECT_EQ(all.size(), 15U);
    EXPECT_EQ(state(), "uint16 2");
}

TEST_F(DeviceInformationTest, NamesInAnyEncodingBecomeText) {
    const Texts all = report(
        "T:  Bus=01\n"
        "S:  Manufacturer=Ger\xC3\xA4te \xAE\n"
        "S:  Product=cut \xE2\x82\n"
        "S:  SerialNumber=\x01\x1B[31m\n"
        "I:* If#= 0 Alt= 0 #EPs= 1 Cls=02(comm.) Sub=02 Prot=01 Driver=acm\n"
        "E:\n");
    ASSERT_EQ(all.size(), 16U);
    EXPECT_EQ(all[0], "Product Name                  cut \xC3\xA2\xE2\x80\x9A");
    EXPECT_EQ(all[1], "Serial Number                 \xEF\xBF\xBD\xEF\xBF\xBD[31m");
    EXPECT_EQ(all[2], "Vendor Name                   Ger\xC3\xA4te \xC2\xAE");
    EXPECT_EQ(all[10],
              "Interface Protocol            Common AT commands (also known as "
              "\xE2\x80\x9CHayes\xE2\x84\xA2 compatible\xE2\x80\x9D)");
    EXPECT_EQ(state(), "uint16 2");
}

TEST_F(DeviceInformationTest, EveryByteInANamePasses) {
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '\n') {
            report(std::string("T:  Bus=01\nS:  Product=a") + static_cast<char>(byte) + "b\nE:\n");
            ASSERT_EQ(state(), "uint16 2") << byte;
        }
    }
}

TEST_F(DeviceInformationTest, CallIsLoggedWithItsArgument) {
    PrivateDeviceList::show("");
    testing::internal::CaptureStdout();
    run_.UsbHc_GetUsbDeviceInformation("arg\xAE");
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(folder_.take(),
              "In GetUsbDeviceInformation Test  \n"
              "         in UsbHc_ \n"
              "DeviceID is: arg\xC2\xAE\n");
}

TEST_F(DeviceInformationTest, ControlCharactersOfTheArgumentAreLoggedAsNumbers) {
    PrivateDeviceList::show("");
    testing::internal::CaptureStdout();
    run_.UsbHc_GetUsbDeviceInformation("a\n\tb");
    testing::internal::GetCapturedStdout();
    EXPECT_NE(folder_.take().find("DeviceID is: a\\x0a\\x09b\n"), std::string::npos);
}

TEST_F(DeviceInformationTest, MissingResultEndsTheTest) {
    ResultTable::clear();
    PrivateDeviceList::show(block("01"));
    testing::internal::CaptureStdout();
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>([&] { run_.UsbHc_GetUsbDeviceInformation(""); }),
              "index out of bounds");
    testing::internal::GetCapturedStdout();
}

}  // namespace
}  // namespace Pegasus
