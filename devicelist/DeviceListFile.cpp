// SPDX-License-Identifier: MIT
#include "devicelist/DeviceListFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstring>

#include "base/FileDescriptor.h"
#include "devicelist/DeviceList.h"

namespace devicelist {

namespace {

[[noreturn]] void fail(int error) {
    throw DeviceListFileError(error == ENOENT || error == ENOTDIR, std::strerror(error));
}

base::FileDescriptor open(const std::string& path, int flags) {
    base::FileDescriptor file(::open(path.c_str(), flags | O_CLOEXEC));
    if (!file.isOpen()) {
        fail(errno);
    }
    return file;
}

}  // namespace

std::string readDeviceListFile(const std::string& path) {
    // Looked at before it is opened for reading: that alone would end the wait of a FIFO's writer.
    const base::FileDescriptor place = open(path, O_PATH);
    struct stat status {};
    if (::fstat(place.get(), &status) != 0) {
        fail(errno);
    }
    if (S_ISFIFO(status.st_mode)) {
        throw DeviceListFileError(false, "it is a FIFO");
    }
    const base::FileDescriptor file =
        open("/proc/self/fd/" + std::to_string(place.get()), O_RDONLY | O_NONBLOCK);

    constexpr std::size_t step = std::size_t{64} << 10;
    std::string text;
    std::size_t length = 0;
    while (length <= maximumListSize) {
        text.resize(length + step);
        const ssize_t count = ::read(file.get(), &text[length], step);
        if (count < 0 && errno != EINTR) {
            fail(errno);
        }
        if (count == 0) {
            text.resize(length);
            return text;
        }
        length += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    throw DeviceListFileError(false, "it is longer than 16 MiB");
}

}  // namespace devicelist
