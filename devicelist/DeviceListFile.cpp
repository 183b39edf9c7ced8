// SPDX-License-Identifier: MIT
#include "devicelist/DeviceListFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>

#include "base/DescriptorIo.h"
#include "base/FileDescriptor.h"
#include "devicelist/DeviceList.h"
#include "devicelist/HeldFile.h"

namespace devicelist {

namespace {

[[noreturn]] void fail(int error) {
    throw DeviceListFileError(error == ENOENT || error == ENOTDIR, std::strerror(error));
}

HeldFile hold(const std::string& path) {
    HeldFile held(path);
    if (!held.isHeld()) {
        fail(errno);
    }
    return held;
}

std::string read(const HeldFile& held) {
    const base::FileDescriptor file(::open(held.path().c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen()) {
        fail(errno);
    }
    return readOpenDeviceList(file.get());
}

}  // namespace

std::string readDeviceListFile(const std::string& path) {
    const HeldFile held = hold(path);
    if (S_ISFIFO(held.facts().st_mode)) {
        throw DeviceListFileError(false, "it is a FIFO");
    }
    return read(held);
}

std::string readRegularDeviceListFile(const std::string& path) {
    const HeldFile held = hold(path);
    if (!S_ISREG(held.facts().st_mode)) {
        throw DeviceListFileError(false, "it is no regular file");
    }
    return read(held);
}

std::string readOpenDeviceList(int descriptor) {
    std::string text;
    if (!base::readUpTo(descriptor, maximumListSize + 1, text)) {
        fail(errno);
    }
    if (text.size() > maximumListSize) {
        throw DeviceListFileError(false, "it is longer than 16 MiB");
    }
    return text;
}

}  // namespace devicelist
