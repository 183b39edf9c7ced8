// SPDX-License-Identifier: MIT
#include "usbdevices/result.h"

#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "tests/usbdevices/readList.h"

namespace {

const std::string hub =
    "T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=12  MxCh= 2\n"
    "B:  Alloc=  0/900 us ( 0%), #Int=  0, #Iso=  0\n"
    "D:  Ver= 1.10 Cls=09(hub  ) Sub=00 Prot=00 MxPS= 8 #Cfgs=  1\n"
    "P:  Vendor=1d6b ProdID=0001 Rev= 2.04\n"
    "S:  Product=USB OHCI Root Hub\n"
    "S:  SerialNumber=c4846000\n"
    "C:* #Ifs= 1 Cfg#= 1 Atr=40 MxPwr=  0mA\n"
    "I:  If#= 0 Alt= 0 #EPs= 1 Cls=09(hub  ) Sub=00 Prot=00 Driver=hub\n"
    "E:  Ad=81(I) Atr=03(Int.) MxPS=   8 Ivl=255ms\n";

std::string device(const std::string& bus) {
    return "T:  Bus=" + bus + " Lev=01 Prnt=01 Port=00 Cnt=01 Dev#=  2 Spd=12  MxCh= 0\n";
}

const std::string endpoint = "E:  Ad=81(I) Atr=03(Int.) MxPS=   8 Ivl=255ms\n";

std::string interface(const std::string& number) {
    return "I:  If#= " + number + " Alt= 0 #EPs= 1 Cls=03(HID  ) Sub=00 Prot=00 Driver=usbhid\n";
}

/// `list`, made `size` bytes long by lines that the reader ignores in front of it.
std::string paddedTo(std::size_t size, const std::string& list) {
    std::string padding(size - list.size(), 'x');
    padding.back() = '\n';
    return padding + list;
}

TEST(Result, GathersTheLinesOfAHub) {
    const auto devices = readList(hub);
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_EQ(devices[0].getTopology()->getBus(), "01 ");
    EXPECT_EQ(devices[0].getTopology()->getConnections(), " 2");
    EXPECT_EQ(devices[0].getDescriptor()->getVersion(), " 1.10 ");
    EXPECT_EQ(devices[0].getProduct()->getVendor(), "1d6b ");
    EXPECT_EQ(devices[0].getDeviceInfo()->getproduct(), "USB OHCI Root Hub");
    EXPECT_EQ(devices[0].getDeviceInfo()->getserial(), "c4846000");
    EXPECT_EQ(devices[0].getDeviceInfo()->getUsbHost(), "OHCI");
    EXPECT_EQ(devices[0].getConfiguration()->getPower(), "  0");
    EXPECT_EQ(devices[0].getInterface()->getDriver(), "hub");
}

TEST(Result, KeepsTheOrderOfTheList) {
    const auto devices = readList(device("03") + endpoint + device("01") + endpoint);
    ASSERT_EQ(devices.size(), 2U);
    EXPECT_EQ(devices[0].getTopology()->getBus(), "03 ");
    EXPECT_EQ(devices[1].getTopology()->getBus(), "01 ");
}

TEST(Result, WritesOnlyItsBanner) {
    PrivateDeviceList::show(hub);
    EXPECT_EQ(readWhatIsThere().output, banner);
}

TEST(Result, AnEmptyListHasNoDeviceAndNoMessage) {
    PrivateDeviceList::show("");
    const Reading reading = readWhatIsThere();
    EXPECT_TRUE(reading.devices.empty());
    EXPECT_EQ(reading.output, banner);
}

TEST(Result, AMissingListGivesBothMessages) {
    PrivateDeviceList::show(hub);
    const PrivateDeviceList::Missing missing;
    const Reading reading = readWhatIsThere();
    EXPECT_TRUE(reading.devices.empty());
    EXPECT_EQ(reading.output,
              std::string(banner) + "could not open usb device file \ncould not read file \n");
}

TEST(Result, AListThatMayNotBeReadGivesBothMessages) {
    PrivateDeviceList::show(hub);
    const PrivateDeviceList::Unreadable unreadable;
    const Reading reading = readWhatIsThere();
    EXPECT_TRUE(reading.devices.empty());
    EXPECT_EQ(reading.output,
              std::string(banner) + "could not open usb device file \ncould not read file \n");
}

TEST(Result, AFolderInItsPlaceCanBeOpenedButNotRead) {
    const PrivateDeviceList::Folder folder;
    const Reading reading = readWhatIsThere();
    EXPECT_TRUE(reading.devices.empty());
    EXPECT_EQ(reading.output, std::string(banner) + "could not read file \n");
}

TEST(Result, AFailedSecondReadingKeepsTheDevicesOfTheFirst) {
    const CaughtOutput output;
    PrivateDeviceList::show(hub);
    result reader;
    reader.GetUsbDeviceInfomation();
    const PrivateDeviceList::Missing missing;
    EXPECT_EQ(reader.GetUsbDeviceInfomation().size(), 1U);
}

TEST(Result, ASecondReadingAppendsTheDevicesAgain) {
    const CaughtOutput output;
    PrivateDeviceList::show(hub + device("02") + endpoint);
    result reader;
    EXPECT_EQ(reader.GetUsbDeviceInfomation().size(), 2U);
    PrivateDeviceList::show(device("07") + endpoint);
    const auto devices = inOrder(reader.GetUsbDeviceInfomation());
    ASSERT_EQ(devices.size(), 3U);
    EXPECT_EQ(devices[1].getTopology()->getBus(), "02 ");
    EXPECT_EQ(devices[2].getTopology()->getBus(), "07 ");
}

TEST(Result, ASecondReadingDoesNotContinueADeviceOfTheFirst) {
    const CaughtOutput output;
    PrivateDeviceList::show(device("01") + interface("5"));
    result reader;
    EXPECT_TRUE(reader.GetUsbDeviceInfomation().empty());
    PrivateDeviceList::show(endpoint + device("02") + endpoint);
    const auto devices = inOrder(reader.GetUsbDeviceInfomation());
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_EQ(devices[0].getInterface()->getInterface(), "");
}

TEST(Result, TheQueueOutlivesItsReader) {
    const CaughtOutput output;
    PrivateDeviceList::show(hub);
    auto reader = std::make_unique<result>();
    const auto devices = reader->GetUsbDeviceInfomation();
    reader.reset();
    EXPECT_EQ(devices.front().getDeviceInfo()->getproduct(), "USB OHCI Root Hub");
}

TEST(Result, ALastLineWithoutLineFeedIsNotProcessed) {
    EXPECT_TRUE(readList(hub.substr(0, hub.size() - 1)).empty());
    EXPECT_EQ(readList(hub + device("02") + endpoint.substr(0, endpoint.size() - 1)).size(), 1U);
}

TEST(Result, TheLastLineOfAListThatBeginsWithAnEmptyLineIsNotProcessed) {
    EXPECT_TRUE(readList("\n" + hub).empty());
    EXPECT_EQ(readList("\n" + hub + "\n").size(), 1U);
    // Two empty lines: only the first line feed of all is not counted.
    EXPECT_TRUE(readList("\n\n" + hub).empty());
    // An empty line elsewhere does not matter.
    EXPECT_EQ(readList(hub + "\n" + device("02") + endpoint).size(), 2U);
}

TEST(Result, AListOfLineFeedsIsEmpty) {
    EXPECT_TRUE(readList("\n").empty());
    EXPECT_TRUE(readList("\n\n\n").empty());
}

TEST(Result, TheFirstEndpointAfterATopologyCompletesTheDevice) {
    const auto devices = readList(device("01") + interface("0") + endpoint + endpoint +
                                  device("02") + interface("1") + endpoint);
    ASSERT_EQ(devices.size(), 2U);
    EXPECT_EQ(devices[0].getInterface()->getInterface(), " 0 ");
    EXPECT_EQ(devices[1].getInterface()->getInterface(), " 1 ");
}

TEST(Result, AnEndpointBeforeAnyTopologyCompletesNoDevice) {
    EXPECT_TRUE(readList(endpoint + interface("0") + endpoint).empty());
    const auto devices = readList(interface("7") + endpoint + device("01") + endpoint);
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_EQ(devices[0].getInterface()->getInterface(), " 7 ");
}

TEST(Result, LaterInterfacesGoToTheNextDevice) {
    const auto devices = readList(device("01") + interface("0") + endpoint + interface("1") +
                                  endpoint + device("02") + endpoint);
    ASSERT_EQ(devices.size(), 2U);
    EXPECT_EQ(devices[0].getInterface()->getInterface(), " 0 ");
    EXPECT_EQ(devices[1].getTopology()->getBus(), "02 ");
    EXPECT_EQ(devices[1].getInterface()->getInterface(), " 1 ");
}

TEST(Result, ADevicesOwnLinesOverwriteThoseOfTheDeviceBefore) {
    const auto devices = readList(device("01") + interface("0") + endpoint + interface("1") +
                                  endpoint + device("02") + interface("2") + endpoint);
    ASSERT_EQ(devices.size(), 2U);
    EXPECT_EQ(devices[1].getInterface()->getInterface(), " 2 ");
}

TEST(Result, LaterStringsGoToTheNextDeviceIfItHasNone) {
    const auto devices = readList(device("01") + endpoint + "S:  Product=OHCI thing\n" +
                                  device("02") + "S:  SerialNumber=5\n" + endpoint);
    ASSERT_EQ(devices.size(), 2U);
    EXPECT_EQ(devices[1].getDeviceInfo()->getproduct(), "OHCI thing");
    EXPECT_EQ(devices[1].getDeviceInfo()->getserial(), "5");
    EXPECT_EQ(devices[1].getDeviceInfo()->getUsbHost(), "OHCI");
}

TEST(Result, OfSeveralInterfacesBeforeAnEndpointTheLastCounts) {
    const auto devices = readList(device("01") + interface("0") + interface("1") + endpoint);
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_EQ(devices[0].getInterface()->getInterface(), " 1 ");
}

TEST(Result, OfSeveralConfigurationsTheLastCounts) {
    const auto devices = readList(device("01") + "C:  MxPwr=100mA\nC:* MxPwr=500mA\n" + endpoint);
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_EQ(devices[0].getConfiguration()->getPower(), "500");
}

TEST(Result, ADeviceWithoutEndpointIsOverwrittenByTheNext) {
    const auto devices = readList(device("01") + interface("4") + "S:  SerialNumber=lost\n" +
                                  device("02") + endpoint);
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_EQ(devices[0].getTopology()->getBus(), "02 ");
    EXPECT_EQ(devices[0].getInterface()->getInterface(), " 4 ");
    EXPECT_EQ(devices[0].getDeviceInfo()->getserial(), "lost");
}

TEST(Result, ADeviceWithoutEndpointAtTheEndIsNotPushed) {
    EXPECT_EQ(readList(hub + device("02") + interface("0")).size(), 1U);
}

TEST(Result, OnlyTheFirstLetterOfALineDecides) {
    const auto devices = readList("Trash without colon Bus=09 Lev=\n" + device("01") +
                                  "t:  Bus=05 Lev=\nB:  Bus=06 Lev=\n T:  Bus=07 Lev=\n\nEnd\n");
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_EQ(devices[0].getTopology()->getBus(), "01 ");
    EXPECT_EQ(readList("Total Bus=09 Lev=\nEnough\n").size(), 1U);
}

TEST(Result, AZeroByteEndsTheText) {
    EXPECT_TRUE(readList(std::string("\0", 1) + hub).empty());
    EXPECT_EQ(readList(hub + std::string("\0", 1) + hub).size(), 1U);
    std::string broken = hub;
    broken[broken.size() - 3] = '\0';
    EXPECT_TRUE(readList(broken).empty());
}

TEST(Result, CarriageReturnsStayInTheValuesThatRunToTheEndOfTheLine) {
    std::string dos;
    for (const char character : hub) {
        dos += character == '\n' ? "\r\n" : std::string(1, character);
    }
    const auto devices = readList(dos);
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_EQ(devices[0].getDeviceInfo()->getproduct(), "USB OHCI Root Hub\r");
    EXPECT_EQ(devices[0].getConfiguration()->getPower(), "  0");
}

TEST(Result, ALineMayFillNearlyTheWholeBuffer) {
    const std::string name(8000, 'n');
    const auto devices = readList(device("01") + "S:  Product=" + name + "\n" + endpoint);
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_EQ(devices[0].getDeviceInfo()->getproduct(), name);
}

TEST(Result, AListOf8191BytesIsReadCompletely) {
    const auto list = paddedTo(8191, hub);
    ASSERT_EQ(list.size(), 8191U);
    EXPECT_EQ(readList(list).size(), 1U);
}

TEST(Result, AListOf8192BytesIsReadCompletely) {
    const auto list = paddedTo(8192, hub);
    ASSERT_EQ(list.size(), 8192U);
    EXPECT_EQ(readList(list).size(), 1U);
}

TEST(Result, TheLastByteOfAListOf8193BytesIsNotRead) {
    const auto list = paddedTo(8193, hub);
    ASSERT_EQ(list.size(), 8193U);
    EXPECT_TRUE(readList(list).empty());  // the line feed that ends the last line is cut off
    EXPECT_EQ(readList(paddedTo(8192, hub) + hub).size(), 1U);
}

TEST(Result, OnlyTheFirst8192BytesOfALongListAreRead) {
    std::string list;
    while (list.size() < std::size_t{3} * 8192) {
        list += hub;
    }
    EXPECT_EQ(readList(list).size(), 8192 / hub.size());
}

TEST(Result, NeverReadsASecondTime) {
    // The pipe stays open, so a second read would block.
    const PrivateDeviceList::Pipe pipe(hub);
    alarm(60);
    const Reading reading = readWhatIsThere();
    alarm(0);
    EXPECT_EQ(reading.devices.size(), 1U);
    EXPECT_EQ(reading.output, banner);
}

TEST(Result, ClosesTheList) {
    PrivateDeviceList::show(hub);
    const auto nextFreeNumber = [] {
        const int file = open("/dev/null", O_RDONLY | O_CLOEXEC);
        close(file);
        return file;
    };
    const int before = nextFreeNumber();
    readWhatIsThere();
    EXPECT_EQ(nextFreeNumber(), before);
    const PrivateDeviceList::Folder folder;
    readWhatIsThere();
    EXPECT_EQ(nextFreeNumber(), before);
}

}  // namespace
