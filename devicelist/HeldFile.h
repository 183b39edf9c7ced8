// SPDX-License-Identifier: MIT
// A file as a place, whatever becomes of its name.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>

#include <string>

#include "base/DescriptorIo.h"
#include "base/FileDescriptor.h"

namespace devicelist {

/// Holds a file or folder itself, whatever is mounted over its name later or takes the name.
///
/// It is not opened for reading: that would end the wait of a FIFO's writer. One thread at a time.
class HeldFile {
public:
    /// Whether that failed is for the caller to see.
    explicit HeldFile(const std::string& name) : place_(::open(name.c_str(), O_PATH | O_CLOEXEC)) {
        isHeld_ = place_.isOpen() && ::fstat(place_.get(), &facts_) == 0;
    }

    /// If not, errno says why directly after the construction, and nothing else may be called.
    bool isHeld() const { return isHeld_; }

    int number() const { return place_.get(); }

    /// As they were when it was opened.
    const struct stat& facts() const { return facts_; }

    /// Where this process finds it, to open it for reading, too.
    std::string path() const { return base::descriptorPath(number()); }

private:
    base::FileDescriptor place_;
    struct stat facts_ = {};
    bool isHeld_ = false;
};

}  // namespace devicelist
