// SPDX-License-Identifier: MIT
#include "tests/support/RawConnection.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <strings.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <stdexcept>

namespace {

constexpr int patience = 10'000;
constexpr std::string_view endOfHeader = "\r\n\r\n";

}  // namespace

RawConnection::RawConnection(std::uint16_t port) : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(socket_.get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        throw std::runtime_error("cannot connect to port " + std::to_string(port));
    }
}

bool RawConnection::send(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::send(socket_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count < 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

void RawConnection::finishSending() {
    shutdown(socket_.get(), SHUT_WR);
}

bool RawConnection::readMore() {
    pollfd polled{socket_.get(), POLLIN, 0};
    if (poll(&polled, 1, patience) == 0) {
        throw std::runtime_error("the server neither answers nor closes");
    }
    std::array<char, 65536> buffer{};
    const ssize_t count = recv(socket_.get(), buffer.data(), buffer.size(), 0);
    if (count <= 0) {
        return false;
    }
    received_.append(buffer.data(), static_cast<std::size_t>(count));
    return true;
}

std::string RawConnection::readAll() {
    while (readMore()) {
    }
    return std::move(received_);
}

std::string RawConnection::readResponse() {
    while (true) {
        const std::size_t head = received_.find(endOfHeader);
        if (head != std::string::npos) {
            const std::string length = fieldOf(received_, "Content-Length");
            const std::size_t size =
                head + endOfHeader.size() + std::strtoul(length.c_str(), nullptr, 10);
            if (received_.size() >= size) {
                std::string response = received_.substr(0, size);
                received_.erase(0, size);
                return response;
            }
        }
        if (!readMore()) {
            throw std::runtime_error("the server closed before a response: \"" + received_ + "\"");
        }
    }
}

bool RawConnection::closesWithin(std::chrono::milliseconds time) {
    pollfd polled{socket_.get(), POLLIN, 0};
    return poll(&polled, 1, static_cast<int>(time.count())) == 1 && !readMore();
}

int statusOf(std::string_view response) {
    const std::size_t space = response.find(' ');
    return space == std::string_view::npos
               ? 0
               : static_cast<int>(std::strtol(response.data() + space, nullptr, 10));
}

std::string fieldOf(std::string_view response, std::string_view name) {
    std::string_view head = response.substr(0, response.find(endOfHeader));
    while (true) {
        const std::size_t end = head.find("\r\n");
        if (end == std::string_view::npos) {
            return "";
        }
        head.remove_prefix(end + 2);
        if (head.size() > name.size() && head[name.size()] == ':' &&
            strncasecmp(head.data(), name.data(), name.size()) == 0) {
            const std::string_view line = head.substr(0, head.find("\r\n"));
            const std::size_t value = line.find_first_not_of(' ', name.size() + 1);
            return value == std::string_view::npos ? "" : std::string(line.substr(value));
        }
    }
}

std::string bodyOf(std::string_view response) {
    const std::size_t end = response.find(endOfHeader);
    return end == std::string_view::npos ? ""
                                         : std::string(response.substr(end + endOfHeader.size()));
}
