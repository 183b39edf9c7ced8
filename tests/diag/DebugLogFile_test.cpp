// SPDX-License-Identifier: MIT
#include "diag/DebugLogFile.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/LogFolder.h"

namespace Pegasus {
namespace {

/// Files may grow to so many bytes while the object exists.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit = {bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }

private:
    rlimit before_ = {};
};

/// Another user while the object exists; for a process of root.
class OtherUser {
public:
    explicit OtherUser(uid_t user) { becameIt_ = seteuid(user) == 0; }
    OtherUser(const OtherUser&) = delete;
    OtherUser& operator=(const OtherUser&) = delete;
    ~OtherUser() {
        if (seteuid(0) != 0) {
            abort();
        }
    }

    bool becameIt() const { return becameIt_; }

private:
    bool becameIt_ = false;
};

class DebugLogFile : public testing::Test {
protected:
    static constexpr uid_t firstUser = 54321;
    static constexpr uid_t secondUser = 54322;

    // A file that everybody may write, of a user of choice.
    static void makeFileOf(uid_t owner, const char* name) {
        std::ofstream{name};
        ASSERT_EQ(chmod(name, 0666), 0);
        ASSERT_EQ(chown(name, owner, static_cast<gid_t>(-1)), 0);
    }

    static sigset_t blockedSignals() {
        sigset_t signals;
        pthread_sigmask(SIG_BLOCK, nullptr, &signals);
        return signals;
    }

    static bool isSizeSignalPending() {
        sigset_t pending;
        sigpending(&pending);
        return sigismember(&pending, SIGXFSZ) == 1;
    }

    static std::string content(const char* name) {
        std::ifstream file(name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    // The descriptor that the next open() returns: higher if a file was left open.
    static int nextFreeNumber() {
        const int file = open("/dev/null", O_RDONLY | O_CLOEXEC);
        close(file);
        return file;
    }

    LogFolder folder_;
};

TEST_F(DebugLogFile, SecondTextIsAppendedToTheFirst) {
    appendToLogFile("log", "a");
    appendToLogFile("log", "b\n");
    EXPECT_EQ(content("log"), "ab\n");
}

TEST_F(DebugLogFile, ExistingFileIsExtendedNeverTruncated) {
    std::ofstream("log") << "before\n";
    appendToLogFile("log", "after\n");
    EXPECT_EQ(content("log"), "before\nafter\n");
}

TEST_F(DebugLogFile, NewFileHasPermissions0664WithoutAnUmask) {
    const mode_t before = umask(0);
    appendToLogFile("log", "a");
    umask(before);
    struct stat status = {};
    ASSERT_EQ(stat("log", &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0664U);
}

TEST_F(DebugLogFile, NewFileRespectsTheUmaskOfTheProcess) {
    const mode_t before = umask(027);
    appendToLogFile("log", "a");
    umask(before);
    struct stat status = {};
    ASSERT_EQ(stat("log", &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST_F(DebugLogFile, EmptyNameLogsNothing) {
    appendToLogFile("", "a");
    EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
}

TEST_F(DebugLogFile, EmptyTextCreatesAnEmptyFile) {
    appendToLogFile("log", "");
    EXPECT_EQ(access("log", F_OK), 0);
    EXPECT_EQ(content("log"), "");
}

TEST_F(DebugLogFile, FileThatCannotBeOpenedIsIgnored) {
    ASSERT_EQ(mkdir("log", 0700), 0);
    appendToLogFile("log", "a");
    appendToLogFile("no-such-folder/log", "a");
    EXPECT_NE(access("no-such-folder", F_OK), 0);
}

TEST_F(DebugLogFile, FifoWithoutReaderDoesNotBlock) {
    ASSERT_EQ(mkfifo("log", 0600), 0);
    appendToLogFile("log", "a");
    const int reader = open("log", O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    char byte = 0;
    EXPECT_EQ(read(reader, &byte, 1), 0);
    close(reader);
}

TEST_F(DebugLogFile, FifoWithReaderReceivesNothing) {
    ASSERT_EQ(mkfifo("log", 0600), 0);
    const int reader = open("log", O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    appendToLogFile("log", "a");
    char byte = 0;
    EXPECT_EQ(read(reader, &byte, 1), 0);
    close(reader);
}

TEST_F(DebugLogFile, DeviceReceivesNothing) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0) {
        GTEST_SKIP() << "skipped: this machine has no pseudo terminals";
    }
    std::array<char, 64> name = {};
    ASSERT_EQ(ptsname_r(terminal, name.data(), name.size()), 0);
    // Held open: what a terminal was told is gone once nobody has it open.
    const int otherEnd = open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_GE(otherEnd, 0);
    appendToLogFile(name.data(), "a");
    char byte = 0;
    EXPECT_LT(read(terminal, &byte, 1), 0);
    close(otherEnd);
    close(terminal);
}

TEST_F(DebugLogFile, SymbolicLinkIsNotFollowed) {
    std::ofstream("target") << "before";
    ASSERT_EQ(symlink("target", "log"), 0);
    appendToLogFile("log", "a");
    EXPECT_EQ(content("target"), "before");
}

TEST_F(DebugLogFile, SymbolicLinkToNothingCreatesNothing) {
    ASSERT_EQ(symlink("target", "log"), 0);
    appendToLogFile("log", "a");
    EXPECT_NE(access("target", F_OK), 0);
}

TEST_F(DebugLogFile, FolderMayBeASymbolicLink) {
    ASSERT_EQ(mkdir("folder", 0700), 0);
    ASSERT_EQ(symlink("folder", "link"), 0);
    appendToLogFile("link/log", "a");
    EXPECT_EQ(content("folder/log"), "a");
}

TEST_F(DebugLogFile, FileOfTwoNamesIsNotWritten) {
    std::ofstream("elsewhere") << "before";
    ASSERT_EQ(link("elsewhere", "log"), 0);
    appendToLogFile("log", "a");
    EXPECT_EQ(content("log"), "before");
}

TEST_F(DebugLogFile, FileThatIsNotWrittenIsClosed) {
    std::ofstream("elsewhere") << "before";
    ASSERT_EQ(link("elsewhere", "log"), 0);
    const int before = nextFreeNumber();
    appendToLogFile("log", "a");
    EXPECT_EQ(nextFreeNumber(), before);
}

TEST_F(DebugLogFile, RootWritesOnlyRootsFile) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "skipped: only root can make a file of somebody else's";
    }
    makeFileOf(firstUser, "log");
    appendToLogFile("log", "a");
    EXPECT_EQ(content("log"), "");
    makeFileOf(0, "log");
    appendToLogFile("log", "a");
    EXPECT_EQ(content("log"), "a");
}

TEST_F(DebugLogFile, UserWritesItsOwnFileAndRootsAndNobodyElses) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "skipped: only root can become somebody else";
    }
    makeFileOf(firstUser, "own");
    makeFileOf(0, "root's");
    makeFileOf(secondUser, "other's");
    ASSERT_EQ(chmod(".", 0755), 0);
    {
        const OtherUser user(firstUser);
        ASSERT_TRUE(user.becameIt());
        for (const char* const name : {"own", "root's", "other's"}) {
            appendToLogFile(name, "a");
        }
    }
    EXPECT_EQ(content("own"), "a");
    EXPECT_EQ(content("root's"), "a");
    EXPECT_EQ(content("other's"), "");
}

TEST_F(DebugLogFile, TextThatFitsTheLimitOfFileSizesIsWhole) {
    const FileSizeLimit limit(10);
    appendToLogFile("log", "0123456789");
    EXPECT_EQ(content("log"), "0123456789");
}

TEST_F(DebugLogFile, TextBeyondTheLimitOfFileSizesIsCutOffWithoutASignal) {
    const sigset_t before = blockedSignals();
    const int nextNumber = nextFreeNumber();
    {
        const FileSizeLimit limit(10);
        appendToLogFile("log", "0123456789+");
        appendToLogFile("log", "+");
    }
    EXPECT_EQ(content("log"), "0123456789");
    EXPECT_FALSE(isSizeSignalPending());
    const sigset_t after = blockedSignals();
    EXPECT_EQ(sigismember(&after, SIGXFSZ), sigismember(&before, SIGXFSZ));
    EXPECT_EQ(nextFreeNumber(), nextNumber);
}

TEST_F(DebugLogFile, SignalThatWaitedBeforeStillWaitsAfterALimit) {
    sigset_t signals;
    sigset_t before;
    sigemptyset(&signals);
    sigaddset(&signals, SIGXFSZ);
    pthread_sigmask(SIG_BLOCK, &signals, &before);
    raise(SIGXFSZ);
    {
        const FileSizeLimit limit(0);
        appendToLogFile("log", "a");
    }
    EXPECT_TRUE(isSizeSignalPending());
    const timespec atOnce = {};
    sigtimedwait(&signals, nullptr, &atOnce);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

TEST_F(DebugLogFile, NothingStaysOpen) {
    const int before = nextFreeNumber();
    appendToLogFile("log", "a");
    EXPECT_EQ(nextFreeNumber(), before);
}

TEST_F(DebugLogFile, LongTextIsWrittenCompletely) {
    const std::string text(1 << 20, 'x');
    appendToLogFile("log", text.c_str());
    EXPECT_EQ(content("log"), text);
}

}  // namespace
}  // namespace Pegasus
