// SPDX-License-Identifier: MIT
#include "cli/MemoryFile.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/DescriptorIo.h"
#include "cli/Errors.h"

namespace usbhcdiag {

base::FileDescriptor memoryFile(const char* name, const std::string& content) {
    base::FileDescriptor file(::memfd_create(name, MFD_CLOEXEC));
    if (!file.isOpen() || ::fchmod(file.get(), S_IRUSR | S_IWUSR) != 0) {
        throw Failure("cannot make a file in memory: " + systemReason());
    }
    if (!base::writeAll(file.get(), content)) {
        throw Failure("cannot write to a file in memory: " + systemReason());
    }
    return file;
}

}  // namespace usbhcdiag
