// SPDX-License-Identifier: MIT
// Shows a file of choice where programs read the kernel's USB device list, to this process alone.
// For processes with a single thread; see each operation.
#pragma once

#include <stdexcept>
#include <string>

#include "base/DeviceListPaths.h"
#include "devicelist/HeldFile.h"

namespace devicelist {

/// A step that failed on the way to a private view. The text names the step, the file and the
/// reason.
class DeviceListMountError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A private view of the file system in which a file of choice stands where the kernel's USB device
/// list is read.
///
/// A modern kernel has no such path, so a small file system in memory covers its nearest existing
/// folder; what that folder holds stays visible. The file is bound in read-only: programs read it
/// as it is at that moment, so a pipe can be shown, too. A regular file without a name, such as one
/// in memory that a process has inherited ("/proc/self/fd/10"), cannot be bound: a copy is shown.
class DeviceListMount {
public:
    /// A view that shows `file` at `place`, an absolute path; a relative `file` counts from the
    /// working directory of the moment. Opens the file, which is the one that is shown whatever its
    /// name leads to later, and does not enter yet. Throws DeviceListMountError.
    explicit DeviceListMount(std::string file, std::string place = base::deviceListPath);

    /// Where this process finds the file to be shown, for as long as this object exists.
    std::string path() const { return file_.path(); }

    /// Moves this process into the view. From then on it, and every program that it starts, sees
    /// the file; no other process does, and nothing has to be undone. May be called again for
    /// another view, which then covers this one.
    ///
    /// Needs root, or a kernel that allows unprivileged user namespaces: there the process keeps
    /// its user and group and gains rights over its own view alone. Call it before the process
    /// starts threads. Throws DeviceListMountError; the process may then be in a view without the
    /// file, and should end.
    void enter() const;

private:
    std::string name_;
    std::string place_;
    HeldFile file_;
};

}  // namespace devicelist
