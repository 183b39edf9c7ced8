// SPDX-License-Identifier: MIT
#include "wire/http/SocketStream.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/uio.h>

#include <array>
#include <cerrno>
#include <utility>

namespace wire {

namespace {

timeval asTimeval(std::chrono::milliseconds time) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    const auto rest = std::chrono::microseconds(time - seconds);
    timeval value{};
    value.tv_sec = seconds.count();
    value.tv_usec = static_cast<suseconds_t>(rest.count());
    return value;
}

bool isTick() {
    return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

}  // namespace

// Blocking calls that return every now and then, to look at the clock: one system call for a
// transfer that does not have to wait, where polling first would take two.
SocketStream::SocketStream(base::FileDescriptor socket, std::chrono::milliseconds precision)
    : socket_(std::move(socket)) {
    const timeval tick = asTimeval(precision);
    const int yes = 1;
    setsockopt(socket_.get(), SOL_SOCKET, SO_RCVTIMEO, &tick, sizeof tick);
    setsockopt(socket_.get(), SOL_SOCKET, SO_SNDTIMEO, &tick, sizeof tick);
    setsockopt(socket_.get(), IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
}

void SocketStream::checkDeadline() const {
    if (Clock::now() >= deadline_) {
        throw StreamEnded{StreamEnd::timeout};
    }
}

std::size_t SocketStream::read(char* buffer, std::size_t size) {
    while (true) {
        checkDeadline();
        const ssize_t count = recv(socket_.get(), buffer, size, 0);
        if (count > 0) {
            return static_cast<std::size_t>(count);
        }
        if (count == 0) {
            throw StreamEnded{StreamEnd::closed};
        }
        if (!isTick()) {
            throw StreamEnded{StreamEnd::failed};
        }
    }
}

bool SocketStream::writeSome(std::string_view& head, std::string_view& body) {
    checkDeadline();
    std::array<iovec, 2> parts{};
    // sendmsg() does not write to what it sends.
    parts[0].iov_base = const_cast<char*>(head.data());
    parts[0].iov_len = head.size();
    parts[1].iov_base = const_cast<char*>(body.data());
    parts[1].iov_len = body.size();
    msghdr message{};
    message.msg_iov = parts.data();
    message.msg_iovlen = parts.size();
    const ssize_t count = sendmsg(socket_.get(), &message, MSG_NOSIGNAL);
    if (count < 0) {
        if (!isTick()) {
            throw StreamEnded{StreamEnd::failed};
        }
        return false;
    }
    const auto sent = static_cast<std::size_t>(count);
    const std::size_t ofHead = sent < head.size() ? sent : head.size();
    head.remove_prefix(ofHead);
    body.remove_prefix(sent - ofHead);
    return sent > 0;
}

void SocketStream::write(std::string_view head, std::string_view body) {
    while (!head.empty() || !body.empty()) {
        writeSome(head, body);
    }
}

void SocketStream::drain() {
    shutdown(socket_.get(), SHUT_WR);
    std::array<char, 4096> dropped{};
    try {
        while (true) {
            read(dropped.data(), dropped.size());
        }
    } catch (const StreamEnded&) {
        // Either way there is nothing more to wait for.
    }
}

void SocketStream::pause(std::chrono::milliseconds time) const {
    pollfd closed{socket_.get(), POLLRDHUP, 0};
    poll(&closed, 1, static_cast<int>(time.count()));
}

}  // namespace wire
