// SPDX-License-Identifier: MIT
#include "diag/DebugLogFile.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ctime>

#include "base/DescriptorIo.h"
#include "base/FileDescriptor.h"

namespace Pegasus {
namespace {

/// Whether nobody but root and the process's user can have put the file there: no device or FIFO, no
/// second name of a file elsewhere, nobody else's. (A symbolic link was not opened.)
bool mayBeWritten(const base::FileDescriptor& file) {
    struct stat facts = {};
    return fstat(file.get(), &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_nlink == 1 &&
           (facts.st_uid == 0 || facts.st_uid == geteuid());
}

/// Where files may only grow to a limit, a write beyond it sends this thread SIGXFSZ, which ends a
/// process that does not handle it. How it is handled belongs to the process; this thread alone
/// holds the signal back and takes it.
void writeAllWithoutSignal(const base::FileDescriptor& file, const char* text) {
    sigset_t signals;
    sigset_t before;
    sigset_t pending;
    sigemptyset(&signals);
    sigaddset(&signals, SIGXFSZ);
    pthread_sigmask(SIG_BLOCK, &signals, &before);
    sigpending(&pending);
    const bool wasPending = sigismember(&pending, SIGXFSZ) == 1;
    if (!base::writeAll(file.get(), text) && errno == EFBIG && !wasPending) {
        const timespec atOnce = {};
        while (sigtimedwait(&signals, nullptr, &atOnce) < 0 && errno == EINTR) {
        }
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

bool hasSizeLimit() {
    rlimit limit = {};
    return getrlimit(RLIMIT_FSIZE, &limit) != 0 || limit.rlim_cur != RLIM_INFINITY;
}

}  // namespace

void appendToLogFile(const char* fileName, const char* text) {
    if (*fileName == '\0') {
        return;
    }
    constexpr mode_t permissions = 0664;
    // Non-blocking, so that a FIFO in place of the log cannot block the server.
    const base::FileDescriptor file(open(
        fileName, O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY | O_NONBLOCK,
        permissions));
    if (!file.isOpen() || !mayBeWritten(file)) {
        return;
    }
    // Asked each time, which costs less than to hold the signal back each time.
    if (hasSizeLimit()) {
        writeAllWithoutSignal(file, text);
    } else {
        base::writeAll(file.get(), text);
    }
}

}  // namespace Pegasus
