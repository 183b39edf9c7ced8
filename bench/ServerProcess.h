// SPDX-License-Identifier: MIT
// A server in a process of its own, for benchmarks.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <vector>

#include "base/FileDescriptor.h"

/// Runs from construction, which waits until the server says where it listens, to destruction.
class ServerProcess {
public:
    /// Throws std::runtime_error if the server ends before it listens.
    explicit ServerProcess(const std::vector<std::string>& commandLine);
    ~ServerProcess();
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    const std::string& url() const { return url_; }
    std::uint16_t port() const;

    /// Memory of the process that is in use, in KiB.
    std::size_t residentKiB() const;

private:
    pid_t process_ = -1;
    std::string url_;
};

/// One connection that is kept open.
class KeptConnection {
public:
    explicit KeptConnection(std::uint16_t port);

    /// Sends a request and returns the response, valid until the next call. Throws
    /// std::runtime_error for anything but status 200.
    const std::string& exchange(const std::string& request);

private:
    base::FileDescriptor socket_;
    std::string response_;
};
