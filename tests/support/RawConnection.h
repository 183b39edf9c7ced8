// SPDX-License-Identifier: MIT
// A socket to a server on this machine, for tests that send exactly the bytes they want.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

/// Connected from construction to destruction. Waits at most ten seconds for anything, then throws
/// std::runtime_error.
class RawConnection {
public:
    explicit RawConnection(std::uint16_t port);
    ~RawConnection();
    RawConnection(const RawConnection&) = delete;
    RawConnection& operator=(const RawConnection&) = delete;

    /// Sends all bytes; returns false where the server has closed the connection.
    bool send(std::string_view bytes);

    /// Says that no more will be sent.
    void finishSending();

    /// Everything until the server closes. A reset counts as closing.
    std::string readAll();

    /// One response by its Content-Length, which must be there; interim ones are a response too.
    std::string readResponse();

    /// Whether the server closes within the time given, without sending anything.
    bool closesWithin(std::chrono::milliseconds time);

private:
    bool readMore();

    int descriptor_;
    std::string received_;
};

/// The status code of a response.
int statusOf(std::string_view response);

/// The value of a field of a response, "" if it has none.
std::string fieldOf(std::string_view response, std::string_view name);

/// What stands behind the header of a response.
std::string bodyOf(std::string_view response);
