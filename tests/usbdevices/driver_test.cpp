// SPDX-License-Identifier: MIT
// The stand-alone driver: its report, and the program itself.
#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <string_view>

#include <gtest/gtest.h>

#include "base/FileDescriptor.h"
#include "tests/support/runCommand.h"
#include "tests/usbdevices/readList.h"
#include "usbdevices/DeviceReport.h"

namespace {

struct Parts {
    std::string product = "Mouse";
    std::string level = "01 ";
    std::string classCode = "03";
    std::string subClassCode = "01 ";
    std::string protocolCode = "02 ";
};

/// The lines of one device in a list.
std::string listed(const Parts& parts) {
    return "T:  Bus=01 Lev=" + parts.level +
           "Prnt=01 Port=02 Cnt=01 Dev#=  3 Spd=1.5 MxCh= 0\n"
           "D:  Ver= 1.10 Cls=00(>ifc ) Sub=00 Prot=00 MxPS= 8 #Cfgs=  1\n"
           "P:  Vendor=0461 ProdID=4d15 Rev= 2.00\n"
           "S:  Manufacturer=A maker\n"
           "S:  Product=" +
           parts.product +
           "\n"
           "S:  SerialNumber=77\n"
           "C:* #Ifs= 1 Cfg#= 1 Atr=a0 MxPwr=100mA\n"
           "I:  If#= 0 Alt= 0 #EPs= 1 Cls=" +
           parts.classCode + "(HID  ) Sub=" + parts.subClassCode + "Prot=" + parts.protocolCode +
           "Driver=usbhid\n"
           "E:  Ad=81(I) Atr=03(Int.) MxPS=   4 Ivl= 10ms\n";
}

std::string named(const std::string& product, const std::string& level = "01 ") {
    Parts parts;
    parts.product = product;
    parts.level = level;
    return listed(parts);
}

/// The report of `list`, followed by the reason in brackets if it is incomplete.
std::string reportOf(const std::string& list) {
    PrivateDeviceList::show(list);
    const CaughtOutput output;
    result reader;
    auto devices = reader.GetUsbDeviceInfomation();
    std::ostringstream report;
    try {
        printDeviceReport(report, devices);
    } catch (const std::out_of_range& error) {
        report << '[' << error.what() << ']';
    }
    return report.str();
}

/// The product names of a report and "level is N" for its lines with a level, each with a blank
/// after it.
std::string outlineOf(const std::string& report) {
    std::istringstream lines(report);
    std::string outline;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("Product Name ", 0) == 0) {
            outline += line.substr(30) + ' ';
        } else if (line.rfind(" level is ", 0) == 0) {
            outline += line.substr(1) + ' ';
        }
    }
    return outline;
}

const std::string mouseBlock =
    "Product Name                  Mouse\n"
    "Serial Number                 77\n"
    "Vendor ID                     0461 \n"
    "Product ID                    4d15 \n"
    "Revision                       2.00\n"
    "USB Specification              1.10 \n"
    "Interface Number               0 \n"
    "Interface Class               Human Interface Device\n"
    "Interface Sub Class           Boot Interface\n"
    "Interface Protocol            Mouse\n"
    "Port on Device                02 \n"
    "Device Driver                 usbhid\n"
    "Current Speed                 1.5 \n"
    "Maximum Current Draw (mAmps)  100\n"
    "\n";

TEST(DeviceReport, IsABlockOfFourteenLines) {
    EXPECT_EQ(reportOf(listed({})), mouseBlock);
}

TEST(DeviceReport, AnOhciRootHubIsPrintedAfterItsLevel) {
    const std::string report = reportOf(named("OHCI", "00 "));
    EXPECT_EQ(report.rfind(" level is 0\nProduct Name                  OHCI\n", 0), 0U) << report;
}

TEST(DeviceReport, PrintsTheLevelBelowAnOhciRootHubAndNoDeeperOne) {
    EXPECT_EQ(outlineOf(reportOf(named("ohci root", "00 ") + named("keyboard", "01 ") +
                                 named("behind a hub", "02 ") + named("mouse", "01 "))),
              "level is 0 ohci root keyboard mouse ");
}

TEST(DeviceReport, WithoutOhciPrintsTheDevicesOfLevelOne) {
    EXPECT_EQ(outlineOf(reportOf(named("uhci root", "00 ") + named("keyboard", "01 ") +
                                 named("behind a hub", "02 "))),
              "keyboard ");
}

TEST(DeviceReport, UsesTheLevelOfTheLastOhciDevice) {
    EXPECT_EQ(outlineOf(reportOf(named("one", "01 ") + named("an ohci thing", "02 ") +
                                 named("two", "03 ") + named("three", "01 "))),
              "one level is 2 an ohci thing two ");
}

TEST(DeviceReport, NoLevelIsBelowTheGreatestNumber) {
    EXPECT_EQ(outlineOf(reportOf(named("ohci", "2147483646 ") + named("next", "2147483647 "))),
              "level is 2147483646 ohci next ");
    EXPECT_EQ(outlineOf(reportOf(named("ohci", "2147483647 ") + named("wrapped", "-2147483648 "))),
              "level is 2147483647 ohci ");
}

TEST(DeviceReport, AnUnknownProtocolHasNoLine) {
    Parts parts;
    parts.protocolCode = "09 ";
    std::string expected = mouseBlock;
    const std::string line = "Interface Protocol            Mouse\n";
    expected.erase(expected.find(line), line.size());
    EXPECT_EQ(reportOf(listed(parts)), expected);
}

TEST(DeviceReport, UnknownClassAndSubClassHaveAnEmptyValue) {
    Parts parts;
    parts.classCode = "ff";
    const std::string report = reportOf(listed(parts));
    EXPECT_NE(report.find("Interface Class               \n"
                          "Interface Sub Class           \n"
                          "Port on Device "),
              std::string::npos);
}

TEST(DeviceReport, LeavesTheQueueUnchanged) {
    PrivateDeviceList::show(named("a") + named("b", "02 ") + named("c"));
    const CaughtOutput output;
    result reader;
    auto devices = reader.GetUsbDeviceInfomation();
    std::ostringstream report;
    printDeviceReport(report, devices);
    std::string names;
    for (const UsbDevice& device : inOrder(devices)) {
        names += device.getDeviceInfo()->getproduct();
    }
    EXPECT_EQ(names, "abc");
}

TEST(DeviceReport, AnEmptyLevelEndsItEvenOfADeviceThatIsNotPrinted) {
    EXPECT_EQ(reportOf(listed({}) + named("broken", "")),
              mouseBlock + "[device 2 of the list, \"broken\", has no level]");
    EXPECT_EQ(reportOf(named("ohci", "")), "[device 1 of the list, \"ohci\", has no level]");
}

TEST(DeviceReport, AnEmptyClassEndsItAfterTheInterfaceNumber) {
    Parts parts;
    parts.classCode = "";
    EXPECT_EQ(reportOf(listed(parts)),
              mouseBlock.substr(0, mouseBlock.find("Interface Class")) +
                  "[device 1 of the list, \"Mouse\", has no interface class]");
}

TEST(DeviceReport, AnEmptySubClassEndsItAfterTheClass) {
    Parts parts;
    parts.subClassCode = "";
    EXPECT_EQ(reportOf(listed(parts)),
              mouseBlock.substr(0, mouseBlock.find("Interface Sub Class")) +
                  "[device 1 of the list, \"Mouse\", has no interface subclass]");
}

TEST(DeviceReport, AnEmptyProtocolEndsItAfterTheSubClass) {
    Parts parts;
    parts.protocolCode = "";
    EXPECT_EQ(reportOf(listed(parts)),
              mouseBlock.substr(0, mouseBlock.find("Interface Protocol")) +
                  "[device 1 of the list, \"Mouse\", has no interface protocol]");
}

TEST(DeviceReport, AnEmptyClassOfADeviceThatIsNotPrintedIsIgnored) {
    Parts parts;
    parts.level = "02 ";
    parts.classCode = "";
    EXPECT_EQ(reportOf(listed(parts)), "");
}

CommandOutcome runDriver(const std::string& redirection = "") {
    return runCommand(ZORVA_USBDEVICES " " + redirection);
}

TEST(Driver, PrintsTheBannerAndTheReport) {
    PrivateDeviceList::show(listed({}));
    const CommandOutcome outcome = runDriver();
    EXPECT_EQ(outcome.output, banner + mouseBlock);
    EXPECT_EQ(outcome.status, 0);
}

/// What a terminal gets of the driver, both streams, with the terminal's line ends.
std::string shownOnTerminal() {
    const base::FileDescriptor controller(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    EXPECT_EQ(grantpt(controller.get()), 0);
    EXPECT_EQ(unlockpt(controller.get()), 0);
    const std::string name = ptsname(controller.get());
    // Kept open: a terminal without anybody at it forgets what it holds.
    const base::FileDescriptor kept(open(name.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    runCommand(ZORVA_USBDEVICES " >" + name + " 2>&1");
    std::string shown;
    pollfd poll{controller.get(), POLLIN, 0};
    while (::poll(&poll, 1, 100) == 1) {
        std::array<char, 4096> buffer = {};
        const ssize_t count = read(controller.get(), buffer.data(), buffer.size());
        shown.append(buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    return shown;
}

std::string withTerminalLineEnds(std::string text) {
    for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 2)) {
        text.insert(at, "\r");
    }
    return text;
}

const std::string oddName = "\x1B[31m \u009B31m \x9B \x7F \r \xC2 M\u00FCller \u65E5 \xFC";

TEST(Driver, ATerminalIsSparedControlCharacters) {
    PrivateDeviceList::show(named(oddName));
    std::string expected = mouseBlock;
    expected.replace(expected.find("Mouse"), 5,
                     "\uFFFD[31m \uFFFD31m \uFFFD \uFFFD \uFFFD \uFFFD M\u00FCller \u65E5 \uFFFD");
    EXPECT_EQ(shownOnTerminal(), withTerminalLineEnds(banner + expected));
}

TEST(Driver, ATerminalIsSparedControlCharactersInErrorTexts) {
    PrivateDeviceList::show(named("\x1B[31m", ""));
    EXPECT_EQ(
        shownOnTerminal(),
        withTerminalLineEnds(std::string(banner) +
                             "usbdevices: device 1 of the list, \"\uFFFD[31m\", has no level\n"));
}

TEST(Driver, ElsewhereNamesAreAsTheyAre) {
    PrivateDeviceList::show(named(oddName));
    std::string expected = mouseBlock;
    expected.replace(expected.find("Mouse"), 5, oddName);
    EXPECT_EQ(runDriver().output, banner + expected);
}

TEST(Driver, PrintsOnlyTheBannerForAnEmptyList) {
    PrivateDeviceList::show("");
    const CommandOutcome outcome = runDriver();
    EXPECT_EQ(outcome.output, banner);
    EXPECT_EQ(outcome.status, 0);
}

TEST(Driver, PrintsTheReadersMessagesForAMissingList) {
    const PrivateDeviceList::Missing missing;
    const CommandOutcome outcome = runDriver();
    EXPECT_EQ(outcome.output,
              std::string(banner) + "could not open usb device file \ncould not read file \n");
    EXPECT_EQ(outcome.status, 0);
}

TEST(Driver, NamesDeviceAndFieldAfterTheReportAndFails) {
    PrivateDeviceList::show(listed({}) + named("broken", ""));
    const CommandOutcome outcome = runDriver();
    EXPECT_EQ(outcome.output,
              banner + mouseBlock + "usbdevices: device 2 of the list, \"broken\", has no level\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(Driver, WritesItsMessageToStandardError) {
    PrivateDeviceList::show(named("broken", ""));
    EXPECT_EQ(runDriver("2>/dev/null").output, banner);
}

TEST(Driver, FailsIfItsReportCannotBeWritten) {
    PrivateDeviceList::show(listed({}));
    const CommandOutcome outcome = runDriver(">/dev/full");
    EXPECT_EQ(outcome.output, "usbdevices: cannot write the report to standard output\n");
    EXPECT_EQ(outcome.status, 1);
}

}  // namespace
