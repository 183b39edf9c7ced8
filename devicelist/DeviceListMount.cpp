// SPDX-License-Identifier: MIT
#include "devicelist/DeviceListMount.h"

#include <dirent.h>
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstring>
#include <memory>
#include <optional>
#include <utility>

#include "base/DescriptorIo.h"
#include "base/FileDescriptor.h"
#include "devicelist/DeviceListFile.h"

namespace devicelist {

namespace {

[[noreturn]] void fail(const std::string& step) {
    throw DeviceListMountError(step + ": " + std::strerror(errno));
}

HeldFile holdOrFail(const std::string& path) {
    HeldFile file(path);
    if (!file.isHeld()) {
        fail("cannot open " + path);
    }
    return file;
}

void writeFile(const std::string& path, const std::string& text, int flags = 0) {
    constexpr mode_t readable = 0444;
    const base::FileDescriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC | flags, readable));
    if (!file.isOpen() || !base::writeAll(file.get(), text)) {
        fail("cannot write " + path);
    }
}

void createFile(const std::string& path, const std::string& content = {}) {
    writeFile(path, content, O_CREAT | O_EXCL);
    constexpr mode_t readable = 0444;  // whatever the umask
    if (chmod(path.c_str(), readable) != 0) {
        fail("cannot make " + path + " readable");
    }
}

void createFolder(const std::string& path) {
    constexpr mode_t enterable = 0755;  // whatever the umask: the command may change its user
    if (mkdir(path.c_str(), enterable) != 0 || chmod(path.c_str(), enterable) != 0) {
        fail("cannot create the folder " + path);
    }
}

void bindMount(const std::string& what, const std::string& at, const std::string& name) {
    if (mount(what.c_str(), at.c_str(), nullptr, MS_BIND | MS_REC, nullptr) != 0) {
        fail("cannot show " + name + " at " + at);
    }
}

/// Makes the mount at `path` read-only. The flags that the mount has must be given again: the
/// kernel refuses to drop some of them.
void makeReadOnly(const std::string& path) {
    struct statvfs facts = {};
    if (statvfs(path.c_str(), &facts) != 0) {
        fail("cannot look at the mount of " + path);
    }
    constexpr std::array<std::pair<unsigned long, unsigned long>, 6> kept = {{
        {ST_NOSUID, MS_NOSUID},
        {ST_NODEV, MS_NODEV},
        {ST_NOEXEC, MS_NOEXEC},
        {ST_NOATIME, MS_NOATIME},
        {ST_NODIRATIME, MS_NODIRATIME},
        {ST_RELATIME, MS_RELATIME},
    }};
    unsigned long flags = MS_REMOUNT | MS_BIND | MS_RDONLY;
    for (const auto& [has, keep] : kept) {
        if ((facts.f_flag & has) != 0) {
            flags |= keep;
        }
    }
    if (mount(nullptr, path.c_str(), nullptr, flags, nullptr) != 0) {
        fail("cannot make " + path + " read-only");
    }
}

/// Gives this process mounts of its own: directly where it may, else by a user namespace in which
/// it stays who it is.
void leaveSharedMounts() {
    if (unshare(CLONE_NEWNS) != 0) {
        if (errno != EPERM) {
            fail("cannot make a private mount namespace");
        }
        const std::string user = std::to_string(geteuid());
        const std::string group = std::to_string(getegid());
        if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
            fail(
                "cannot make a private mount namespace through a user namespace (run as root, or "
                "let the kernel allow unprivileged user namespaces)");
        }
        writeFile("/proc/self/setgroups", "deny");
        writeFile("/proc/self/uid_map", user + " " + user + " 1");
        writeFile("/proc/self/gid_map", group + " " + group + " 1");
    }
    if (mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
        fail("cannot make the mounts of / private");
    }
}

bool exists(const std::string& path) {
    return access(path.c_str(), F_OK) == 0;
}

/// Makes one entry of the covered folder visible again under the cover.
void showAgain(const HeldFile& covered, const std::string& folder, const char* name) {
    const std::string shown = folder + "/" + name;
    struct stat facts = {};
    if (fstatat(covered.number(), name, &facts, AT_SYMLINK_NOFOLLOW) != 0) {
        return;  // gone in the meantime
    }
    if (S_ISLNK(facts.st_mode)) {
        std::array<char, PATH_MAX> target = {};
        const ssize_t length = readlinkat(covered.number(), name, target.data(), target.size() - 1);
        if (length < 0 || symlink(target.data(), shown.c_str()) != 0) {
            fail("cannot copy the link " + shown);
        }
        return;
    }
    if (S_ISDIR(facts.st_mode)) {
        createFolder(shown);
    } else {
        createFile(shown);
    }
    bindMount(covered.path() + "/" + name, shown, shown);
}

/// Covers `folder` with an empty file system in memory under which its entries stay visible, all but
/// one of that name.
void cover(const std::string& folder, const std::string& hidden) {
    const HeldFile covered = holdOrFail(folder);
    if (mount("devicelist", folder.c_str(), "tmpfs", MS_NOSUID | MS_NODEV | MS_NOEXEC,
              "mode=0755") != 0) {
        fail("cannot cover " + folder);
    }
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(covered.path().c_str()), closedir);
    if (entries == nullptr) {
        fail("cannot list " + folder);
    }
    while (const dirent* entry = readdir(entries.get())) {
        const char* name = static_cast<const char*>(entry->d_name);
        if (std::strcmp(name, ".") != 0 && std::strcmp(name, "..") != 0 && hidden != name) {
            showAgain(covered, folder, name);
        }
    }
}

/// Makes a file of that content at `path`: covers the nearest existing folder and makes the rest of
/// the path under the cover.
void makeUnderCover(const std::string& path, const std::string& content = {}) {
    auto end = path.rfind('/');
    while (end != 0 && !exists(path.substr(0, end))) {
        end = path.rfind('/', end - 1);
    }
    const std::string folder = path.substr(0, end);
    const auto nextEnd = path.find('/', end + 1);
    if (folder.empty() || folder == "/proc") {
        throw DeviceListMountError("cannot make " + path + ": " + path.substr(0, nextEnd) +
                                   " does not exist, and " + (folder.empty() ? "/" : folder) +
                                   " is too large a folder to cover");
    }
    cover(folder, path.substr(end + 1, nextEnd - end - 1));
    for (end = nextEnd; end != std::string::npos; end = path.find('/', end + 1)) {
        createFolder(path.substr(0, end));
    }
    createFile(path, content);
    makeReadOnly(folder);
}

/// The name by which what is held can be found; "/proc/self/fd/..." names it in this process alone. To be
/// asked before the view is left: afterwards the kernel does not know where below the process's root it lies.
std::string nameOf(const HeldFile& held) {
    std::array<char, PATH_MAX> name = {};
    const ssize_t length = readlink(held.path().c_str(), name.data(), name.size());
    return {name.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
}

/// The same file, opened anew by its name in the view that this process is in now: only mounts of its own
/// can be bound. None if the file has no name there, or its name has been given to another.
std::optional<HeldFile> openedInView(const HeldFile& held, const std::string& name) {
    if (name.empty() || name.front() != '/' || !exists(name)) {
        return std::nullopt;
    }
    HeldFile found = holdOrFail(name);
    const struct stat& before = held.facts();
    const struct stat& now = found.facts();
    if (before.st_dev != now.st_dev || before.st_ino != now.st_ino) {
        return std::nullopt;
    }
    return found;
}

std::string contentOf(const HeldFile& held, const std::string& name) {
    try {
        return readRegularDeviceListFile(held.path());
    } catch (const DeviceListFileError& error) {
        throw DeviceListMountError("cannot copy " + name + ": " + error.what());
    }
}

}  // namespace

DeviceListMount::DeviceListMount(std::string file, std::string place)
    : name_(std::move(file)), place_(std::move(place)), file_(holdOrFail(name_)) {}

void DeviceListMount::enter() const {
    // Before the view is entered, so that a mistyped name leaves the process as it was.
    if (S_ISDIR(file_.facts().st_mode)) {
        errno = EISDIR;
        fail("cannot show " + name_ + " as a device list");
    }
    if (faccessat(AT_FDCWD, path().c_str(), R_OK, AT_EACCESS) != 0) {
        fail("cannot read " + name_);
    }
    const std::string name = nameOf(file_);
    leaveSharedMounts();
    // Before the cover, which may hide it.
    const std::optional<HeldFile> file = openedInView(file_, name);
    if (!file) {
        makeUnderCover(place_, contentOf(file_, name_));
        return;
    }
    if (!exists(place_)) {
        makeUnderCover(place_);
    }
    bindMount(file->path(), place_, name_);
    makeReadOnly(place_);
}

}  // namespace devicelist
