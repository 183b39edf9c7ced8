// SPDX-License-Identifier: MIT
#include "wire/http/TurnedAway.h"

#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <string>
#include <utility>

#include "wire/http/HttpConnection.h"

namespace wire {

void TurnedAway::add(base::FileDescriptor client) {
    std::string head;
    appendHead(head, noPlace(), "close");
    send(client.get(), head.data(), head.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    shutdown(client.get(), SHUT_WR);
    if (clients_.size() >= mostWaiting) {
        clients_.pop_front();
    }
    clients_.push_back({std::move(client), SocketStream::Clock::now() + lingerTime});
}

void TurnedAway::appendTo(std::vector<pollfd>& polled) const {
    for (const Client& client : clients_) {
        polled.push_back({client.socket.get(), POLLIN, 0});
    }
}

int TurnedAway::patience() const {
    if (clients_.empty()) {
        return -1;
    }
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        clients_.front().until - SocketStream::Clock::now());
    return std::max(0, static_cast<int>(left.count()) + 1);
}

void TurnedAway::look() {
    const auto now = SocketStream::Clock::now();
    clients_.remove_if([&](const Client& client) {
        std::array<char, 4096> dropped{};
        const ssize_t count =
            recv(client.socket.get(), dropped.data(), dropped.size(), MSG_DONTWAIT);
        const bool closed = count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR);
        return closed || now >= client.until;
    });
}

}  // namespace wire
