// SPDX-License-Identifier: MIT
#include "tests/support/PrivateDeviceList.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <stdexcept>
#include <string>

#include "devicelist/DeviceListMount.h"

namespace {

constexpr int skipped = 77;

int listFile = -1;

void expect(bool done, const char* step) {
    if (!done) {
        throw std::runtime_error(std::string(step) + ": " + std::strerror(errno));
    }
}

std::string folderOfList() {
    const std::string path = base::deviceListPath;
    return path.substr(0, path.rfind('/'));
}

/// Two capabilities let root read any file; this drops or restores them.
void setMayReadEverything(bool may) {
    __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct sets[2] = {};
    expect(syscall(SYS_capget, &header, sets) == 0, "capget");
    constexpr std::uint32_t readEverything = (1U << CAP_DAC_OVERRIDE) | (1U << CAP_DAC_READ_SEARCH);
    if (may) {
        sets[0].effective |= sets[0].permitted & readEverything;
    } else {
        sets[0].effective &= ~readEverything;
    }
    expect(syscall(SYS_capset, &header, sets) == 0, "capset");
}

void coverFolder() {
    expect(mount("covered", folderOfList().c_str(), "tmpfs", 0, nullptr) == 0, "mount");
}

void uncoverFolder() {
    umount2(folderOfList().c_str(), MNT_DETACH);
}

}  // namespace

void PrivateDeviceList::enterOrExit() {
    const char* folder = std::getenv("TMPDIR");
    std::string name = std::string(folder == nullptr ? "/tmp" : folder) + "/devicelist.XXXXXX";
    listFile = mkostemp(name.data(), O_CLOEXEC);
    expect(listFile >= 0, "mkostemp");
    try {
        devicelist::DeviceListMount(name).enter();
    } catch (const devicelist::DeviceListMountError& error) {
        unlink(name.c_str());
        std::cout << "skipped: no private view of the device list: " << error.what() << std::endl;
        std::exit(skipped);
    }
    unlink(name.c_str());  // the mount keeps the file
}

void PrivateDeviceList::show(std::string_view content) {
    // Truncated after writing: to empty the file first costs far more.
    const ssize_t written = pwrite(listFile, content.data(), content.size(), 0);
    expect(written == static_cast<ssize_t>(content.size()), "pwrite");
    expect(ftruncate(listFile, written) == 0, "ftruncate");
}

PrivateDeviceList::Unreadable::Unreadable() {
    expect(fchmod(listFile, 0) == 0, "fchmod");
    setMayReadEverything(false);
}

PrivateDeviceList::Unreadable::~Unreadable() {
    setMayReadEverything(true);
    fchmod(listFile, S_IRUSR | S_IWUSR);
}

PrivateDeviceList::Missing::Missing() {
    coverFolder();
}

PrivateDeviceList::Missing::~Missing() {
    uncoverFolder();
}

PrivateDeviceList::Folder::Folder() {
    coverFolder();
    expect(mkdir(base::deviceListPath, S_IRWXU) == 0, "mkdir");
}

PrivateDeviceList::Folder::~Folder() {
    uncoverFolder();
}

PrivateDeviceList::Pipe::Pipe(std::string_view content) {
    coverFolder();
    const char* path = base::deviceListPath;
    expect(mkfifo(path, S_IRUSR | S_IWUSR) == 0, "mkfifo");
    end_ = base::FileDescriptor(open(path, O_RDWR | O_CLOEXEC));
    expect(end_.isOpen(), "open");
    const ssize_t written = write(end_.get(), content.data(), content.size());
    expect(written == static_cast<ssize_t>(content.size()), "write");
}

PrivateDeviceList::Pipe::~Pipe() {
    uncoverFolder();
}
