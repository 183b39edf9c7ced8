// SPDX-License-Identifier: MIT
#include "bench/ServerProcess.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <stdexcept>

ServerProcess::ServerProcess(const std::vector<std::string>& commandLine) {
    std::array<int, 2> output{};
    if (pipe2(output.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    process_ = fork();
    if (process_ == 0) {
        dup2(output[1], STDOUT_FILENO);
        const int silence = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(silence, STDERR_FILENO);
        std::vector<char*> arguments;
        for (const std::string& argument : commandLine) {
            arguments.push_back(const_cast<char*>(argument.c_str()));
        }
        arguments.push_back(nullptr);
        execv(arguments[0], arguments.data());
        _exit(127);
    }
    close(output[1]);
    std::string line;
    char character = 0;
    while (read(output[0], &character, 1) == 1 && character != '\n') {
        line += character;
    }
    close(output[0]);
    const std::string begin = "listening on ";
    if (line.compare(0, begin.size(), begin) != 0) {
        throw std::runtime_error(commandLine.front() + " does not listen");
    }
    url_ = line.substr(begin.size());
}

ServerProcess::~ServerProcess() {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
}

std::uint16_t ServerProcess::port() const {
    return static_cast<std::uint16_t>(
        std::strtoul(url_.c_str() + url_.rfind(':') + 1, nullptr, 10));
}

std::size_t ServerProcess::residentKiB() const {
    std::ifstream status("/proc/" + std::to_string(process_) + "/status");
    std::string word;
    while (status >> word) {
        if (word == "VmRSS:") {
            std::size_t size = 0;
            status >> size;
            return size;
        }
    }
    throw std::runtime_error("no VmRSS");
}

KeptConnection::KeptConnection(std::uint16_t port) : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(socket_.get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        throw std::runtime_error("cannot connect");
    }
    const int yes = 1;
    setsockopt(socket_.get(), IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
}

const std::string& KeptConnection::exchange(const std::string& request) {
    if (send(socket_.get(), request.data(), request.size(), MSG_NOSIGNAL) !=
        static_cast<ssize_t>(request.size())) {
        throw std::runtime_error("cannot send");
    }
    response_.clear();
    std::array<char, 32768> buffer;
    std::size_t whole = 0;
    while (whole == 0 || response_.size() < whole) {
        const ssize_t count = recv(socket_.get(), buffer.data(), buffer.size(), 0);
        if (count <= 0) {
            throw std::runtime_error("the server closed");
        }
        response_.append(buffer.data(), static_cast<std::size_t>(count));
        const std::size_t head = response_.find("\r\n\r\n");
        if (whole == 0 && head != std::string::npos) {
            // Servers spell the header as they like.
            const char* const length = strcasestr(response_.c_str(), "\r\nContent-Length:");
            if (length == nullptr) {
                throw std::runtime_error("a response without a length");
            }
            whole = head + 4 + std::strtoul(std::strchr(length, ':') + 1, nullptr, 10);
        }
    }
    if (response_.compare(0, 12, "HTTP/1.1 200") != 0) {
        throw std::runtime_error(response_.substr(0, 200));
    }
    return response_;
}
