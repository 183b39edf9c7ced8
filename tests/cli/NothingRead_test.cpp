// SPDX-License-Identifier: MIT
#include "cli/NothingRead.h"

#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include <gtest/gtest.h>

namespace usbhcdiag {
namespace {

using State = DeviceListFinding::State;

class DeviceListTest : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = testing::TempDir() + "device-list-XXXXXX";
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
        list_ = folder_ + "/list";
    }

    void TearDown() override {
        ::unlink(list_.c_str());
        ::rmdir(folder_.c_str());
    }

    void write(const std::string& text) const { std::ofstream(list_) << text; }

    State state() const { return examineDeviceList(list_).state; }

    /// The message where `list_` is the place that the provider reads, and the kernel's list is
    /// at `kernel`.
    std::string message(const std::string& kernel) const {
        return nothingReadPrivately({"/expected", list_, kernel, "/sys"});
    }

    /// The message for a list of that content which --devices named.
    static std::string replayed(const std::string& text) {
        return nothingReadOf("list.txt", examineDeviceListText(text));
    }

    std::string folder_;
    std::string list_;
};

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(DeviceListTest, TellsMissingEmptyBlankAndFilledApart) {
    EXPECT_EQ(state(), State::missing);
    write("");
    EXPECT_EQ(state(), State::empty);
    write("\n");
    EXPECT_EQ(state(), State::blank);
    write("hello T: no\n");
    EXPECT_EQ(state(), State::blank);
    write("T:  Bus=01\n");
    EXPECT_EQ(state(), State::filled);
    write("\nT:  Bus=01\n");
    EXPECT_EQ(state(), State::filled);
}

TEST_F(DeviceListTest, GivesTheSystemsReason) {
    EXPECT_EQ(examineDeviceList(list_).reason, "No such file or directory");
    EXPECT_EQ(examineDeviceList(list_ + "/below").state, State::missing);
    const DeviceListFinding folder = examineDeviceList(folder_);
    EXPECT_EQ(folder.state, State::unreadable);
    EXPECT_EQ(folder.reason, "Is a directory");
}

TEST_F(DeviceListTest, DoesNotWaitForAFifo) {
    ASSERT_EQ(::mkfifo(list_.c_str(), 0600), 0);
    const DeviceListFinding finding = examineDeviceList(list_);
    EXPECT_EQ(finding.state, State::unreadable);
    EXPECT_EQ(finding.reason, "it is a FIFO");
}

TEST_F(DeviceListTest, MessageNamesWhatIsAtThePath) {
    EXPECT_EQ(message("/nowhere").rfind("nothing was read: there is no /expected.\n", 0), 0U);
    write("");
    EXPECT_EQ(message("/nowhere").rfind("nothing was read: /expected is empty.\n", 0), 0U);
    write("?\n");
    EXPECT_EQ(message("/nowhere")
                  .rfind("nothing was read: /expected holds no USB device (no line that begins "
                         "with \"T:\").\n",
                         0),
              0U);
    ::unlink(list_.c_str());
    ::mkdir(list_.c_str(), 0700);
    EXPECT_EQ(message("/nowhere")
                  .rfind("nothing was read: /expected cannot be read (Is a directory).\n", 0),
              0U);
    ::rmdir(list_.c_str());
}

TEST_F(DeviceListTest, MessageSaysHowToPresentTheKernelsList) {
    const std::string unreadable = message(folder_);
    EXPECT_TRUE(contains(unreadable, "which cannot be read (Is a directory)"));
    EXPECT_TRUE(contains(unreadable, "\n    sudo usbhcdiag run\n"));
    write("");
    EXPECT_TRUE(contains(message(list_), "The kernel's list at " + list_ + " is empty, too"));
    write("T:  Bus=01\n");
    const DeviceListPlaces places{"/expected", "/nowhere", list_, "/sys"};
    EXPECT_TRUE(
        contains(nothingReadPrivately(places), "\n    with-device-list " + list_ + " PROGRAM"));
    EXPECT_TRUE(contains(nothingReadPrivately(places), "\n    usbhcdiag run --devices FILE\n"));
}

TEST_F(DeviceListTest, MessageAboutAListThatWasShownDoesNotSayToShowIt) {
    write("T:  Bus=01\n");
    EXPECT_EQ(message(list_),
              "nothing was read: /expected holds no complete USB device (no \"E:\" line behind a "
              "\"T:\").\n");
}

const std::string device = "T:  Bus=01 Lev=00\nE:  Ad=81(I)\n";

TEST_F(DeviceListTest, AnEmptyFirstLineIsNamedWithWhatHelps) {
    EXPECT_EQ(replayed("\n" + device),
              "nothing was read: list.txt holds no USB device that the test reads whole: it begins "
              "with an empty line, for which the last line of the list is not read.\n"
              "Without the empty first line it is read:\n"
              "    sed 1d FILE | usbhcdiag run --devices -\n");
    write("\n" + device);
    EXPECT_EQ(
        message("/nowhere"),
        "nothing was read: /expected holds no USB device that the test reads whole: it begins "
        "with an empty line, for which the last line of the list is not read.\n"
        "Without the empty first line it is read:\n"
        "    sed 1d FILE | usbhcdiag run --devices -\n");
}

TEST_F(DeviceListTest, AMissingLineFeedIsNamedWithWhatHelps) {
    EXPECT_EQ(replayed(device.substr(0, device.size() - 1)),
              "nothing was read: list.txt holds no USB device that the test reads whole: its last "
              "line has no line feed, and is not read.\n"
              "With a line feed at its end it is read:\n"
              "    sed '$a\\' FILE | usbhcdiag run --devices -\n");
}

TEST_F(DeviceListTest, AZeroByteIsNamedWithWhatHelps) {
    std::string list = device;
    list.insert(10, 1, '\0');
    EXPECT_EQ(
        replayed(list),
        "nothing was read: list.txt holds no USB device that the test reads whole: it holds a "
        "zero byte, where the test stops.\n"
        "Without zero bytes it is read:\n"
        "    tr -d '\\0' <FILE | usbhcdiag run --devices -\n");
}

TEST_F(DeviceListTest, ADeviceBeyondWhatIsReadIsNamedWithoutAdvice) {
    EXPECT_EQ(replayed("#" + std::string(9000, '.') + "\n" + device),
              "nothing was read: list.txt holds no USB device that the test reads whole: the test "
              "reads the first 8192 of its 9033 bytes.\n");
    EXPECT_EQ(replayed("\n#" + std::string(9000, '.') + "\n" + device),
              "nothing was read: list.txt holds no USB device that the test reads whole: the test "
              "reads the first 8192 of its 9034 bytes.\n")
        << "an advice that does not help";
}

TEST_F(DeviceListTest, MessageTellsAMachineWithoutUsbFromOneWithoutDebugfs) {
    EXPECT_TRUE(contains(message("/nowhere"),
                         "This kernel has its list at /nowhere, once debugfs "
                         "is mounted:\n    mount -t debugfs debugfs "));
    const DeviceListPlaces places{"/expected", list_, "/nowhere", folder_ + "/bus"};
    EXPECT_EQ(noHostController(places),
              "this machine shows no USB host controller.\n"
              "This machine has no USB, or no driver for it is loaded: there is no " +
                  folder_ +
                  "/bus.\n"
                  "A recorded list is read with\n    usbhcdiag run --devices FILE\n");
}

TEST_F(DeviceListTest, MessageOfAReplayNamesTheFile) {
    write("");
    EXPECT_EQ(nothingReadOf(list_, examineDeviceList(list_)),
              "nothing was read: " + list_ +
                  " is empty.\n"
                  "A recorded list is a copy of " DEVICE_LIST_PATH
                  " (old kernels) or /sys/kernel/debug/usb/devices.\n");
}

TEST_F(DeviceListTest, MessageOfAnotherServerNamesIt) {
    const std::string text = nothingReadAt("http://far:5988");
    EXPECT_EQ(text.rfind("nothing was read: the server at http://far:5988 found no device list "
                         "at " DEVICE_LIST_PATH ",\nor one of which the test reads no device.\n",
                         0),
              0U);
    EXPECT_TRUE(contains(text, "man usbhcdiag"));
}

TEST_F(DeviceListTest, LooksThroughTheServersEyes) {
    const DeviceListPlaces places = deviceListPlaces(4711);
    EXPECT_EQ(places.expected, DEVICE_LIST_PATH);
    EXPECT_EQ(places.seen, "/proc/4711/root" DEVICE_LIST_PATH);
    EXPECT_EQ(places.kernel, "/sys/kernel/debug/usb/devices");
}

TEST_F(DeviceListTest, TheMessageSaysWhyAListFromSysfsIsNotShown) {
    const std::string said =
        nothingReadPrivately({"/expected", list_, "/nowhere", "/sys/bus/usb"}, "it is forbidden");
    EXPECT_EQ(said.find("nothing was read: there is no /expected.\n"
                        "A list made from /sys/bus/usb/devices cannot be shown to the test here:\n"
                        "it is forbidden.\n"),
              0U)
        << said;
    EXPECT_FALSE(contains(message("/nowhere"), "made from"));
}

}  // namespace
}  // namespace usbhcdiag
