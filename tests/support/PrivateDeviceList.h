// SPDX-License-Identifier: MIT
// The device list that a test program reads at the real path; no seam in the code under test.
// One thread.
#pragma once

#include <string_view>

/// The USB device list as this test program alone sees it at the path that the code under test
/// opens.
///
/// Programs added with zorva_add_device_list_test bring a main() that enters the private view before
/// any test runs.
class PrivateDeviceList {
public:
    /// Enters the private view, once and before everything else. Where the machine allows none, says so
    /// and ends the program with status 77, which ctest shows as "Skipped".
    static void enterOrExit();
    /// Makes `content` the list. Cheap: rewrites one file in place.
    static void show(std::string_view content);
    /// Takes the right to read the list away for as long as the object lives, from root, too.
    class Unreadable {
    public:
        Unreadable();
        ~Unreadable();
        Unreadable(const Unreadable&) = delete;
        Unreadable& operator=(const Unreadable&) = delete;
    };
    /// As long as the object lives, there is nothing at the path.
    class Missing {
    public:
        Missing();
        ~Missing();
        Missing(const Missing&) = delete;
        Missing& operator=(const Missing&) = delete;
    };
    /// As long as the object lives, there is a folder at the path.
    class Folder {
    public:
        Folder();
        ~Folder();
        Folder(const Folder&) = delete;
        Folder& operator=(const Folder&) = delete;
    };
    /// As long as the object lives, there is a pipe at the path that holds `content` and never ends.
    class Pipe {
    public:
        explicit Pipe(std::string_view content);
        ~Pipe();
        Pipe(const Pipe&) = delete;
        Pipe& operator=(const Pipe&) = delete;

    private:
        int end_;
    };
};
