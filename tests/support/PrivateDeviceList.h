// SPDX-License-Identifier: MIT
// Shows device lists to a test program at their real path, without a seam in the code under test.
// One thread.
#pragma once

#include <string_view>

#include "base/FileDescriptor.h"

/// The USB device list that only this test program sees, at the path that the code under test
/// opens.
///
/// Programs added with zorva_add_device_list_test have a main() that enters the private view before
/// the tests run. A failed system call throws std::runtime_error.
class PrivateDeviceList {
public:
    /// Enters the private view; called once, before anything else. If the machine does not allow
    /// it, prints why and exits with status 77, which ctest shows as "Skipped".
    static void enterOrExit();
    /// Makes `content` the list. Cheap: rewrites one file in place.
    static void show(std::string_view content);
    /// While the object exists, nobody, not even root, may read the list.
    class Unreadable {
    public:
        Unreadable();
        ~Unreadable();
        Unreadable(const Unreadable&) = delete;
        Unreadable& operator=(const Unreadable&) = delete;
    };
    /// While the object exists, there is nothing at the path.
    class Missing {
    public:
        Missing();
        ~Missing();
        Missing(const Missing&) = delete;
        Missing& operator=(const Missing&) = delete;
    };
    /// While the object exists, there is a folder at the path.
    class Folder {
    public:
        Folder();
        ~Folder();
        Folder(const Folder&) = delete;
        Folder& operator=(const Folder&) = delete;
    };
    /// While the object exists, there is a pipe at the path that holds `content` and never ends.
    class Pipe {
    public:
        explicit Pipe(std::string_view content);
        ~Pipe();
        Pipe(const Pipe&) = delete;
        Pipe& operator=(const Pipe&) = delete;

    private:
        base::FileDescriptor end_;
    };
};
