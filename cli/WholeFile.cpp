// SPDX-License-Identifier: MIT
#include "cli/WholeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "base/DescriptorIo.h"
#include "base/FileDescriptor.h"
#include "cli/Errors.h"

namespace usbhcdiag {
namespace {

[[noreturn]] void fail(const std::string& path, const std::string& reason) {
    throw Failure(path + " cannot be written: " + reason);
}

/// The path that is to be replaced: where symbolic links lead to.
std::string target(const std::string& path) {
    std::error_code failure;
    const auto status = std::filesystem::status(path, failure);
    if (std::filesystem::is_directory(status)) {
        fail(path, std::strerror(EISDIR));
    }
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        fail(path, "it is no regular file. Without --output standard output is written");
    }
    if (!std::filesystem::is_symlink(std::filesystem::symlink_status(path, failure))) {
        return path;
    }
    const auto resolved = std::filesystem::weakly_canonical(path, failure);
    if (failure) {
        fail(path, failure.message());
    }
    return resolved.string();
}

mode_t allowedMode() {
    constexpr mode_t everybody = 0666;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return everybody & ~mask;
}

}  // namespace

void writeWholeFile(const std::string& path, std::string_view content) {
    const std::string wanted = target(path);
    std::string temporary = wanted + ".XXXXXX";
    const base::FileDescriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!file.isOpen()) {
        fail(path, systemReason());
    }
    if (!base::writeAll(file.get(), content) || ::fchmod(file.get(), allowedMode()) != 0 ||
        ::fsync(file.get()) != 0 || ::rename(temporary.c_str(), wanted.c_str()) != 0) {
        const std::string reason = systemReason();
        ::unlink(temporary.c_str());
        fail(path, reason);
    }
}

}  // namespace usbhcdiag
