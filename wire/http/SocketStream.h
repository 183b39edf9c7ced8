// SPDX-License-Identifier: MIT
// A connected socket whose transfers end at a deadline, however slowly the peer drips.
#pragma once

#include <chrono>
#include <cstddef>
#include <string_view>

#include "base/FileDescriptor.h"

namespace wire {

/// Why a transfer cannot go on.
enum class StreamEnd {
    closed,   ///< the peer closed its side
    timeout,  ///< the deadline has passed
    failed,   ///< the connection broke
};

/// Thrown when a transfer cannot go on.
struct StreamEnded {
    StreamEnd why;
};

/// Reads and writes a socket. One thread at a time.
class SocketStream {
public:
    using Clock = std::chrono::steady_clock;

    /// `precision`: how late a deadline may be noticed, and how long writeSome() waits.
    SocketStream(base::FileDescriptor socket, std::chrono::milliseconds precision);

    /// For every transfer from now on.
    void setDeadline(Clock::time_point deadline) { deadline_ = deadline; }
    void setDeadline(std::chrono::milliseconds fromNow) { setDeadline(Clock::now() + fromNow); }

    /// Waits for bytes; returns how many were read, at least one. Throws StreamEnded.
    std::size_t read(char* buffer, std::size_t size);

    /// Writes what the peer takes without a wait longer than the precision, and takes it off both
    /// parts. Returns whether that was anything. Throws StreamEnded.
    bool writeSome(std::string_view& head, std::string_view& body);

    /// Writes everything of both parts. Throws StreamEnded.
    void write(std::string_view head, std::string_view body = {});

    /// Says that nothing more will be written, and reads and drops what still comes until the peer
    /// closes or the deadline passes: closing with unread bytes would reset the connection, and the
    /// peer might never see the last answer.
    void drain();

    /// Waits that long, but no longer than the peer keeps its side open.
    void pause(std::chrono::milliseconds time) const;

private:
    void checkDeadline() const;

    base::FileDescriptor socket_;
    Clock::time_point deadline_ = Clock::time_point::max();
};

}  // namespace wire
