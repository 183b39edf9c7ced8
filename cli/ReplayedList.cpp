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
#include "devicelist/HeldFile.h"

namespace usbhcdiag {
namespace {

// Above the numbers that a program started here takes for itself.
constexpr int lowestNumber = 20;

/// Whether the content can be read here and nobody waits for it elsewhere.
bool isToBeRead(const devicelist::HeldFile& place) {
    struct statfs system {};
    const mode_t mode = place.facts().st_mode;
    return S_ISREG(mode) || (S_ISFIFO(mode) && ::fstatfs(place.number(), &system) == 0 &&
                             system.f_type == PIPEFS_MAGIC);
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
    const devicelist::HeldFile place(file);
    if (!place.isHeld()) {
        fail(systemReason());
    }
    const std::string path = place.path();
    if (S_ISDIR(place.facts().st_mode)) {
        fail(std::strerror(EISDIR));
    }
    if (isToBeRead(place)) {
        const base::FileDescriptor content(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
        if (!content.isOpen()) {
            fail(systemReason());
        }
        take(content.get());
        return;
    }
    if (::faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0) {
        fail(systemReason());
    }
    file_ = base::FileDescriptor(::fcntl(place.number(), F_DUPFD, lowestNumber));
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
