// SPDX-License-Identifier: MIT
#include "cli/ReplayedList.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "cli/Errors.h"
#include "cli/MemoryFile.h"
#include "devicelist/DeviceListFile.h"

namespace usbhcdiag {
namespace {

// Above the numbers that a program started here takes for itself.
constexpr int lowestNumber = 20;

std::string reason() {
    return std::strerror(errno);
}

/// Whether the content can be read here and nobody waits for it elsewhere.
bool isToBeRead(int descriptor, mode_t mode) {
    struct statfs system {};
    return S_ISREG(mode) ||
           (S_ISFIFO(mode) && ::fstatfs(descriptor, &system) == 0 && system.f_type == PIPEFS_MAGIC);
}

bool isGzip(const std::string& text) {
    return text.compare(0, 2, "\x1F\x8B") == 0;
}

}  // namespace

ReplayedList::ReplayedList(const std::string& file) : name_(file == "-" ? "standard input" : file) {
    if (file == "-") {
        take(STDIN_FILENO);
        return;
    }
    // Without waiting, and without waking who waits at the other end of a FIFO.
    const base::FileDescriptor place(::open(file.c_str(), O_PATH | O_CLOEXEC));
    struct stat facts {};
    if (!place.isOpen() || ::fstat(place.get(), &facts) != 0) {
        fail(reason());
    }
    const std::string path = "/proc/self/fd/" + std::to_string(place.get());
    if (S_ISDIR(facts.st_mode)) {
        fail(std::strerror(EISDIR));
    }
    if (isToBeRead(place.get(), facts.st_mode)) {
        const base::FileDescriptor content(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
        if (!content.isOpen()) {
            fail(reason());
        }
        take(content.get());
        return;
    }
    if (::faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0) {
        fail(reason());
    }
    file_ = base::FileDescriptor(::fcntl(place.get(), F_DUPFD, lowestNumber));
}

void ReplayedList::take(int descriptor) {
    try {
        text_ = devicelist::readOpenDeviceList(descriptor);
    } catch (const devicelist::DeviceListFileError& error) {
        fail(error.what());
    }
    if (isGzip(*text_)) {
        throw NothingRead("nothing was read: " + name_ +
                          " is compressed with gzip. Unpacked it can be read:\n"
                          "    zcat FILE | usbhcdiag run --devices -\n");
    }
    const base::FileDescriptor copy = memoryFile("devices", *text_);
    file_ = base::FileDescriptor(::fcntl(copy.get(), F_DUPFD, lowestNumber));
}

void ReplayedList::fail(const std::string& reason) const {
    throw Failure("device list " + name_ + ": " + reason);
}

}  // namespace usbhcdiag
