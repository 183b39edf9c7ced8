// SPDX-License-Identifier: MIT
// The private view, by way of the program that enters it: a test program cannot leave one again.
#include "devicelist/DeviceListMount.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "devicelist/DeviceListFile.h"
#include "tests/support/runCommand.h"

namespace {

const std::string program = ZORVA_WITH_DEVICE_LIST;
const std::string place = base::deviceListPath;

/// Enters the view and ends this process with 0; where that fails, with 1 and the reason on standard
/// error.
[[noreturn]] void enterView(const std::string& list, const std::string& shownAt) {
    try {
        devicelist::DeviceListMount(list, shownAt).enter();
    } catch (const devicelist::DeviceListMountError& error) {
        std::cerr << error.what();
        _exit(1);
    }
    _exit(0);
}

/// A folder of its own for each test, open to every user.
class DeviceListMountTest : public testing::Test {
protected:
    void SetUp() override {
        std::string name = testing::TempDir() + "devicelist.XXXXXX";
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder_ = name;
        std::filesystem::permissions(folder_, std::filesystem::perms::all);
        list_ = folder_ + "/list";
        std::ofstream(list_) << "the list\n";
        const CommandOutcome possible = runCommand(program + " " + list_ + " true");
        if (possible.status != 0) {
            GTEST_SKIP() << possible.output;
        }
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    /// Runs `command` in a shell which sees `file` as the device list.
    static CommandOutcome with(const std::string& file, const std::string& command) {
        return runCommand(program + " " + file + " -- sh -c '" + command + "'");
    }

    std::string folder_;
    std::string list_;
};

TEST_F(DeviceListMountTest, TheCommandReadsTheFileAtThePath) {
    EXPECT_EQ(with(list_, "cat " + place).output, "the list\n");
}

TEST_F(DeviceListMountTest, ARelativeNameCountsFromTheWorkingFolder) {
    EXPECT_EQ(runCommand("cd " + folder_ + " && " + program + " list cat " + place).output,
              "the list\n");
}

TEST_F(DeviceListMountTest, NobodyElseSeesIt) {
    const std::string showNamespace = "readlink /proc/self/ns/mnt";
    EXPECT_NE(with(list_, showNamespace).output, runCommand(showNamespace).output);
    const bool before = access(place.c_str(), F_OK) == 0;
    with(list_, "true");
    EXPECT_EQ(access(place.c_str(), F_OK) == 0, before);
}

TEST_F(DeviceListMountTest, TheCommandCannotChangeTheFile) {
    EXPECT_NE(with(list_, "echo changed > " + place).status, 0);
    EXPECT_EQ(runCommand("cat " + list_).output, "the list\n");
}

TEST_F(DeviceListMountTest, WhatTheCoveredFolderHoldsStaysVisible) {
    const std::string parent = "/proc/bus";
    if (place.rfind(parent + "/usb/", 0) != 0 || access((parent + "/usb").c_str(), F_OK) == 0) {
        GTEST_SKIP() << "nothing is covered for " << place;
    }
    const std::string entries = runCommand("find " + parent + " | sort").output;
    const std::string seen =
        with(list_, "find " + parent + " -path " + parent + "/usb -prune -o -print | sort").output;
    EXPECT_EQ(seen, entries);
}

TEST_F(DeviceListMountTest, AnEmptyFileCanBeShown) {
    std::ofstream(list_, std::ios::trunc).close();
    const CommandOutcome outcome = with(list_, "wc -c < " + place);
    EXPECT_EQ(outcome.output, "0\n");
}

TEST_F(DeviceListMountTest, APipeCanBeShown) {
    const std::string pipe = folder_ + "/pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(with(pipe, "cat " + place + " & echo through > " + pipe + "; wait").output,
              "through\n");
}

TEST_F(DeviceListMountTest, AViewInsideAViewCoversIt) {
    std::ofstream(folder_ + "/other") << "the other\n";
    EXPECT_EQ(
        with(list_, program + " " + folder_ + "/other cat " + place + "; cat " + place).output,
        "the other\nthe list\n");
}

TEST_F(DeviceListMountTest, TheListOfAViewCanBeShownInAnother) {
    EXPECT_EQ(with(list_, program + " " + place + " cat " + place).output, "the list\n");
}

TEST_F(DeviceListMountTest, AFileWithoutNameIsCopied) {
    EXPECT_EQ(runCommand("exec 5<" + list_ + "; rm " + list_ + "; umask 077; " + program +
                         " /dev/fd/5 sh -c 'cat " + place + "; stat -c %a " + place + "'")
                  .output,
              "the list\n444\n");
}

TEST_F(DeviceListMountTest, AFileWithoutNameCoversAView) {
    std::ofstream(folder_ + "/other") << "the other\n";
    const std::string other = folder_ + "/other";
    EXPECT_EQ(with(list_, "exec 5<" + other + "; rm " + other + "; " + program + " /dev/fd/5 cat " +
                              place + "; cat " + place)
                  .output,
              "the other\nthe list\n");
}

TEST_F(DeviceListMountTest, TheFileThatWasOpenedIsShownAndNoOtherOfItsName) {
    // What the kernel calls a file without name is the name of another.
    std::ofstream(list_ + " (deleted)") << "another\n";
    EXPECT_EQ(runCommand("exec 5<" + list_ + "; rm " + list_ + "; readlink /proc/self/fd/5; " +
                         program + " /dev/fd/5 cat " + place)
                  .output,
              list_ + " (deleted)\nthe list\n");
}

/// Whether what is opened stays what is read and shown after its name was given to another file.
[[noreturn]] void openAndRename(const std::string& list, const std::string& other) {
    const devicelist::DeviceListMount mount(list);
    std::filesystem::rename(other, list);
    std::cerr << devicelist::readRegularDeviceListFile(mount.path());
    mount.enter();
    std::cerr << devicelist::readRegularDeviceListFile(place);
    _exit(0);
}

TEST_F(DeviceListMountTest, TheFileIsOpenedOnceToBeReadAndToBeShown) {
    const std::string other = folder_ + "/other";
    std::ofstream(other) << "the other\n";
    EXPECT_EXIT(openAndRename(list_, other), testing::ExitedWithCode(0), "^the list\nthe list\n$");
}

TEST_F(DeviceListMountTest, TheFileItselfIsShownBelowAnotherRoot) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can change the root";
    }
    const std::string root = folder_ + "/root";
    std::filesystem::create_directory(root);
    const std::string writeAndRead = "echo more >>" + list_ + "; cat " + place;
    EXPECT_EQ(runCommand("unshare -m --propagation private sh -c 'mount --rbind / " + root +
                         " && chroot " + root + " " + program + " " + list_ + " -- sh -c \"" +
                         writeAndRead + "\"'")
                  .output,
              "the list\nmore\n");
}

TEST_F(DeviceListMountTest, WorksWithoutRootThroughAUserNamespace) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "every other test shows it, run as an ordinary user";
    }
    const std::string copy = folder_ + "/with-device-list";
    std::filesystem::copy_file(program, copy);
    const std::string asNobody = "setpriv --reuid 65534 --regid 65534 --clear-groups " + copy + " ";
    if (runCommand("setpriv --reuid 65534 --regid 65534 --clear-groups unshare -rm true").status !=
        0) {
        GTEST_SKIP() << "this machine allows no unprivileged user namespaces";
    }
    EXPECT_EQ(runCommand(asNobody + list_ + " sh -c 'id -u; cat " + place + "'").output,
              "65534\nthe list\n");
}

TEST_F(DeviceListMountTest, WhereNoViewMayBeMadeItSaysWhatToDo) {
    // A user namespace that allows no further one, and no rights in it.
    const std::string without =
        "unshare -r sh -c 'echo 0 >/proc/sys/user/max_user_namespaces && "
        "exec setpriv --bounding-set=-all --inh-caps=-all \"$@\"' sh ";
    if (runCommand(without + "true").status != 0) {
        GTEST_SKIP() << "this machine lets nobody limit the number of user namespaces";
    }
    const CommandOutcome outcome = runCommand(without + program + " " + list_ + " echo ran");
    EXPECT_EQ(outcome.output,
              "with-device-list: cannot make a private mount namespace through a user namespace "
              "(run as root, or let the kernel allow unprivileged user namespaces): No space left "
              "on device\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(DeviceListMountTest, NeitherTheRootNorProcIsCovered) {
    EXPECT_EXIT(
        enterView(list_, "/no-such-folder/devices"), testing::ExitedWithCode(1),
        "^cannot make /no-such-folder/devices: /no-such-folder does not exist, and / is too "
        "large a folder to cover$");
    EXPECT_EXIT(enterView(list_, "/proc/no-such-folder/devices"), testing::ExitedWithCode(1),
                "^cannot make /proc/no-such-folder/devices: /proc/no-such-folder does not exist, "
                "and /proc is too large a folder to cover$");
}

TEST_F(DeviceListMountTest, TheStatusOfTheCommandIsTheStatus) {
    EXPECT_EQ(with(list_, "exit 7").status, 7);
}

TEST_F(DeviceListMountTest, AMissingFileIsNamed) {
    const CommandOutcome outcome = with(folder_ + "/none", "echo ran");
    EXPECT_EQ(outcome.output,
              "with-device-list: cannot open " + folder_ + "/none: No such file or directory\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(DeviceListMountTest, AFolderIsNoList) {
    const CommandOutcome outcome = with(folder_, "echo ran");
    EXPECT_EQ(outcome.output,
              "with-device-list: cannot show " + folder_ + " as a device list: Is a directory\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(DeviceListMountTest, AFileThatMayNotBeReadIsNamed) {
    ASSERT_EQ(chmod(list_.c_str(), 0), 0);
    const std::string without = geteuid() == 0 ? "setpriv --bounding-set -dac_override,"
                                                 "-dac_read_search --inh-caps -all "
                                               : "";
    const CommandOutcome outcome = runCommand(without + program + " " + list_ + " echo ran");
    EXPECT_EQ(outcome.output, "with-device-list: cannot read " + list_ + ": Permission denied\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(DeviceListMountTest, ACommandThatDoesNotExistIsNamed) {
    const CommandOutcome outcome = runCommand(program + " " + list_ + " ./no-such-command");
    EXPECT_EQ(outcome.output,
              "with-device-list: cannot run ./no-such-command: No such file or directory\n");
    EXPECT_EQ(outcome.status, 127);
}

TEST_F(DeviceListMountTest, ACommandThatCannotBeRunIsNamed) {
    const CommandOutcome outcome = runCommand(program + " " + list_ + " " + list_);
    EXPECT_EQ(outcome.output, "with-device-list: cannot run " + list_ + ": Permission denied\n");
    EXPECT_EQ(outcome.status, 126);
}

TEST(WithDeviceList, WrongUsageIsNamed) {
    const std::vector<std::pair<std::string, std::string>> complaints = {
        {"", "`with-device-list` needs FILE"},
        {" list", "`with-device-list` needs COMMAND"},
        {" list --", "`with-device-list` needs COMMAND"},
        {" '' true", "the argument FILE is empty"},
        {" --unknown list true", "there is no option --unknown"},
        {" list --unknown true", "there is no option --unknown"},
        {" --completion csh", "there is no completion for \"csh\", only for bash, zsh, fish"},
    };
    for (const auto& [arguments, complaint] : complaints) {
        const CommandOutcome outcome = runCommand(program + arguments);
        EXPECT_EQ(outcome.output,
                  "with-device-list: " + complaint + "\nTry `with-device-list --help`.\n");
        EXPECT_EQ(outcome.status, 2) << arguments;
    }
}

TEST_F(DeviceListMountTest, TheWordsOfTheCommandAreNotRead) {
    const std::string printWords = " -- printf '%s.' --help -- --completion= ''";
    EXPECT_EQ(runCommand(program + " " + list_ + printWords).output, "--help.--.--completion=..");
}

TEST(WithDeviceList, HelpIsNoFailure) {
    const CommandOutcome outcome = runCommand(program + " --help 2>/dev/null");
    EXPECT_EQ(outcome.output.rfind("Usage: with-device-list [OPTION]... FILE [--] COMMAND", 0), 0U);
    EXPECT_NE(outcome.output.find(place), std::string::npos);
    EXPECT_EQ(outcome.status, 0);
}

}  // namespace
