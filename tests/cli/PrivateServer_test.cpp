// SPDX-License-Identifier: MIT
#include "cli/PrivateServer.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <thread>

#include <gtest/gtest.h>

#include "cli/Errors.h"
#include "cli/MemoryFile.h"
#include "devicelist/DeviceList.h"

namespace usbhcdiag {
namespace {

std::string failure(const std::string& program, const std::optional<std::string>& devices) {
    try {
        const PrivateServer server(program, devices);
    } catch (const Failure& error) {
        return error.what();
    }
    return "(none)";
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(PrivateServer, TellsItsUrl) {
    const PrivateServer server(FAKE_CIMHOST, std::nullopt);
    EXPECT_EQ(server.url(), "http://127.0.0.1:4711");
}

TEST(PrivateServer, TakesAReadyLineInPieces) {
    const PrivateServer server(FAKE_CIMHOST, "/in-pieces");
    EXPECT_EQ(server.url(), "http://127.0.0.1:7");
}

TEST(PrivateServer, HandsOverCredentialsThatOthersCannotRead) {
    const PrivateServer server(FAKE_CIMHOST, std::nullopt);
    const std::string said = server.diagnostics();
    EXPECT_TRUE(contains(said, "mode 600\n")) << said;
    EXPECT_TRUE(contains(said, "credentials " + server.user() + ":" + server.password() + "\n"))
        << said;
    EXPECT_EQ(server.password().size(), 32U);
}

TEST(PrivateServer, MakesAPasswordForEachRun) {
    const PrivateServer one(FAKE_CIMHOST, std::nullopt);
    const PrivateServer other(FAKE_CIMHOST, std::nullopt);
    EXPECT_NE(one.password(), other.password());
}

TEST(PrivateServer, RunsWhereNoFileCanBeMadeAndInAGroupOfItsOwn) {
    const PrivateServer server(FAKE_CIMHOST, std::nullopt);
    const std::string said = server.diagnostics();
    EXPECT_TRUE(contains(said, "folder /proc\n")) << said;
    EXPECT_TRUE(contains(said, "group leader 1")) << said;
}

TEST(PrivateServer, EndsWithItsObject) {
    pid_t process = -1;
    {
        const PrivateServer server(FAKE_CIMHOST, std::nullopt);
        process = server.process();
        ASSERT_EQ(::kill(process, 0), 0);
    }
    EXPECT_NE(::kill(process, 0), 0);
    EXPECT_EQ(errno, ESRCH);
}

TEST(PrivateServer, EndsAlsoWhenItIgnoresTheRequest) {
    pid_t process = -1;
    {
        const PrivateServer server(FAKE_CIMHOST, "/stubborn");
        process = server.process();
        while (!contains(server.diagnostics(), "ignoring SIGTERM")) {
            std::this_thread::yield();
        }
    }
    EXPECT_NE(::kill(process, 0), 0);
}

TEST(PrivateServer, EndsWithThisProcessHoweverThatEnds) {
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);  // orphans become this process' children
    for (const int signal : {SIGINT, SIGTERM, SIGKILL}) {
        std::array<int, 2> channel{};
        ASSERT_EQ(::pipe(channel.data()), 0);
        const pid_t command = ::fork();
        if (command == 0) {
            const PrivateServer server(FAKE_CIMHOST, "/stubborn");
            const pid_t process = server.process();
            [[maybe_unused]] const auto count = ::write(channel[1], &process, sizeof process);
            for (;;) {
                ::pause();
            }
        }
        pid_t server = -1;
        ASSERT_EQ(::read(channel[0], &server, sizeof server), static_cast<ssize_t>(sizeof server));
        ASSERT_EQ(::kill(server, 0), 0);
        ::kill(command, signal);
        int status = 0;
        ::waitpid(command, &status, 0);
        EXPECT_EQ(WTERMSIG(status), signal);
        EXPECT_EQ(::waitpid(server, &status, 0), server);
        EXPECT_EQ(WTERMSIG(status), SIGKILL) << "after signal " << signal;
        ::close(channel[0]);
        ::close(channel[1]);
    }
}

TEST(PrivateServer, PassesOnWhatAFailedServerSaid) {
    EXPECT_EQ(failure(FAKE_CIMHOST, "/fails"),
              "the private server did not start: " FAKE_CIMHOST "\ncannot do it");
}

TEST(PrivateServer, NamesAProgramThatCannotBeRun) {
    EXPECT_EQ(failure("/nowhere/cimhost", std::nullopt),
              "the private server did not start: /nowhere/cimhost\n"
              "cannot be run: No such file or directory");
}

TEST(PrivateServer, StartsWithoutAnOwnListThatCannotBeShownAndSaysWhy) {
    const PrivateServer server(FAKE_CIMHOST, std::nullopt, "/nowhere/list");
    EXPECT_EQ(server.notShown(), "cannot open /nowhere/list: No such file or directory");
    EXPECT_EQ(server.url(), "http://127.0.0.1:4711");
    EXPECT_EQ(PrivateServer(FAKE_CIMHOST, std::nullopt).notShown(), "");
}

std::string mountsOf(const std::string& process) {
    return std::filesystem::read_symlink("/proc/" + process + "/ns/mnt").string();
}

TEST(PrivateServer, IsNotLeftInAViewThatCouldNotBeFinished) {
    // Too long to be copied, which shows only in the view.
    const base::FileDescriptor list =
        memoryFile("devices", std::string(devicelist::maximumListSize + 1, '.'));
    const PrivateServer server(FAKE_CIMHOST, std::nullopt,
                               "/proc/self/fd/" + std::to_string(list.get()));
    EXPECT_NE(server.notShown(), "");
    EXPECT_EQ(mountsOf(std::to_string(server.process())), mountsOf("self"));
}

TEST(PrivateServer, ThatSpeaksOfAListThatItWasNotGivenIsNoCimhost) {
    EXPECT_EQ(failure(FAKE_CIMHOST, "/not-shown"),
              FAKE_CIMHOST " is not the cimhost of this version: it says \"not shown: it\"");
}

TEST(PrivateServer, TellsWhyAServerDidNotStartAlsoAfterAListThatWasNotShown) {
    try {
        const PrivateServer server(FAKE_CIMHOST, "/fails", "/nowhere/list");
        ADD_FAILURE();
    } catch (const Failure& error) {
        EXPECT_EQ(std::string(error.what()),
                  "the private server did not start: " FAKE_CIMHOST "\ncannot do it");
    }
}

TEST(PrivateServer, RefusesAProgramThatIsNoCimhost) {
    EXPECT_EQ(failure(FAKE_CIMHOST, "/babbles"),
              FAKE_CIMHOST " is not the cimhost of this version: it says \"hello\"");
}

TEST(PrivateServer, IsNotHeldUpByWhatNobodyReadsAndKeepsTheEnd) {
    const PrivateServer server(FAKE_CIMHOST, "/talkative");
    while (!contains(server.diagnostics(), "line 19999")) {
        std::this_thread::yield();
    }
    EXPECT_LE(server.diagnostics().size(), 65536U);
    EXPECT_FALSE(contains(server.diagnostics(), "line 0\n"));
}

TEST(PrivateServer, ProgramLiesBesideTheExecutable) {
    const std::string folder = testing::TempDir() + "beside-" + std::to_string(::getpid());
    ASSERT_EQ(::mkdir(folder.c_str(), 0700), 0);
    ASSERT_EQ(::symlink(FAKE_CIMHOST, (folder + "/cimhost").c_str()), 0);
    ASSERT_EQ(::symlink((folder + "/usbhcdiag").c_str(), (folder + "/exe").c_str()), 0);
    EXPECT_EQ(cimhostProgram(folder + "/exe"), folder + "/cimhost");

    ::unlink((folder + "/cimhost").c_str());
    try {
        cimhostProgram(folder + "/exe");
        ADD_FAILURE();
    } catch (const Failure& error) {
        EXPECT_EQ(std::string(error.what()),
                  "the private server is missing: " + folder +
                      "/cimhost: No such file or directory\n"
                      "It belongs beside usbhcdiag. With --server URL another one is used.");
    }
    ::unlink((folder + "/exe").c_str());
    ::rmdir(folder.c_str());
}

}  // namespace
}  // namespace usbhcdiag
