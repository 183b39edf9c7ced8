// SPDX-License-Identifier: MIT
// The device list that --devices names.
#pragma once

#include <optional>
#include <string>

#include "base/DescriptorIo.h"
#include "base/FileDescriptor.h"

namespace usbhcdiag {

/// A device list, opened once: what was opened is examined here, and shown to the private server.
///
/// Regular files, pipes without a name and, as "-", standard input are read at once. A FIFO, a
/// terminal or a device file is not read: its content is for the provider. Main thread only.
class ReplayedList {
public:
    /// Waits only for the end of standard input or of a pipe without a name. Throws Failure for a file
    /// that cannot be read, NothingRead for one that is compressed.
    explicit ReplayedList(const std::string& file);

    /// What to call it in messages.
    const std::string& name() const { return name_; }

    /// Its content, if it was read.
    const std::optional<std::string>& text() const { return text_; }

    /// Where this process, and those that it starts while this object exists, find it.
    std::string path() const { return base::descriptorPath(file_.get()); }

private:
    void take(int descriptor);
    [[noreturn]] void fail(const std::string& reason) const;

    std::string name_;
    std::optional<std::string> text_;
    base::FileDescriptor file_;  ///< what path() leads to: open in new programs, too
};

}  // namespace usbhcdiag
