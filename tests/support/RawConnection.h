// SPDX-License-Identifier: MIT
// A connection to a server on this machine, for tests that send arbitrary bytes.
// One thread per connection.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/FileDescriptor.h"

/// Connected from construction to destruction. Throws std::runtime_error if it cannot connect, or
/// if the server neither sends nor closes for ten seconds.
class RawConnection {
public:
    explicit RawConnection(std::uint16_t port);

    /// Sends all bytes. Returns false if the server has closed the connection.
    bool send(std::string_view bytes);

    /// Closes the sending half of the connection.
    void finishSending();

    /// Reads until the server closes. A reset counts as closing.
    std::string readAll();

    /// Reads one response by its Content-Length, taken as 0 if missing. Interim responses count.
    std::string readResponse();

    /// Whether the server closes within the given time, without sending anything.
    bool closesWithin(std::chrono::milliseconds time);

private:
    bool readMore();

    base::FileDescriptor socket_;
    std::string received_;
};

/// The status code of a response, 0 if it has none.
int statusOf(std::string_view response);

/// The value of a field of a response, "" if it has none.
std::string fieldOf(std::string_view response, std::string_view name);

/// The body of a response, "" if its header does not end.
std::string bodyOf(std::string_view response);
