// SPDX-License-Identifier: MIT
// Ownership of a file descriptor.
#pragma once

#include <unistd.h>

#include <utility>

namespace base {

/// A file descriptor that is closed with its owner. Any number below zero stands for none.
/// Not synchronized: one thread at a time may use it.
class FileDescriptor {
public:
    /// Takes what open(), socket() and the like return; whether they failed is for the caller to see.
    explicit FileDescriptor(int fd = -1) noexcept : fd_(fd) {}
    FileDescriptor(FileDescriptor&& other) noexcept : fd_(other.release()) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        const int taken = other.release();
        close();
        fd_ = taken;
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { close(); }

    int get() const { return fd_; }
    bool isOpen() const { return fd_ >= 0; }

    /// Closes the descriptor now; nothing happens if there is none.
    void close() {
        if (isOpen()) {
            ::close(release());
        }
    }

    /// Leaves the descriptor to the caller.
    int release() { return std::exchange(fd_, -1); }

private:
    int fd_;
};

}  // namespace base
