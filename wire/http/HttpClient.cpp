// SPDX-License-Identifier: MIT
#include "wire/http/HttpClient.h"

#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>

#include "base/FileDescriptor.h"
#include "wire/http/SocketStream.h"

namespace wire {

namespace {

namespace http = boost::beast::http;
using boost::beast::error_code;
using std::chrono::milliseconds;

constexpr milliseconds precision{1000};
constexpr std::size_t chunk = 64UL * 1024;

struct FreeAddresses {
    void operator()(addrinfo* addresses) const { freeaddrinfo(addresses); }
};
using Addresses = std::unique_ptr<addrinfo, FreeAddresses>;

Addresses resolve(const std::string& host, std::uint16_t port) {
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_NUMERICSERV;
    addrinfo* found = nullptr;
    const int error = getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found);
    if (error != 0) {
        throw HttpError("the host is not known (" + std::string(gai_strerror(error)) + ")");
    }
    return Addresses(found);
}

/// Waits for a connection that is being made; returns its error, 0 for none.
int awaitConnection(int socket, milliseconds time) {
    pollfd polled{socket, POLLOUT, 0};
    int ready = 0;
    do {
        ready = poll(&polled, 1, static_cast<int>(time.count()));
    } while (ready < 0 && errno == EINTR);
    if (ready == 0) {
        return ETIMEDOUT;
    }
    int error = 0;
    socklen_t size = sizeof error;
    getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size);
    return error;
}

/// A connected, blocking socket, or none with `error` set.
base::FileDescriptor connectTo(const addrinfo& address, milliseconds time, int& error) {
    base::FileDescriptor socket(
        ::socket(address.ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!socket.isOpen()) {
        error = errno;
        return socket;
    }
    error = ::connect(socket.get(), address.ai_addr, address.ai_addrlen) == 0 ? 0 : errno;
    if (error == EINPROGRESS) {
        error = awaitConnection(socket.get(), time);
    }
    if (error != 0) {
        socket.close();
        return socket;
    }
    fcntl(socket.get(), F_SETFL, fcntl(socket.get(), F_GETFL) & ~O_NONBLOCK);
    return socket;
}

std::string endText(StreamEnd end) {
    switch (end) {
        case StreamEnd::closed:
            return "the server closed the connection without a complete answer";
        case StreamEnd::timeout:
            return "the server did not answer in time";
        default:
            return "the connection broke";
    }
}

}  // namespace

class HttpClient::Connection {
public:
    Connection(base::FileDescriptor socket, const HttpClientLimits& limits)
        : limits_(limits),
          stream_(std::move(socket), precision),
          buffer_(limits.headerBytes + chunk) {}

    bool isStale() const { return buffer_.size() > 0 || stream_.isStale(); }

    /// Sets `keepAlive` to whether the connection can be used again.
    HttpResponse exchange(std::string_view head, std::string_view body, bool& keepAlive) {
        stream_.setDeadline(limits_.answerTime);
        stream_.write(head, body);
        while (true) {
            Parser parser;
            read(parser);
            const bool interim = parser.get().result_int() / 100 == 1;
            if (!interim) {
                keepAlive = parser.get().keep_alive();
                return takeResponse(parser);
            }
        }
    }

private:
    using Parser = http::response_parser<http::string_body>;

    void read(Parser& parser) {
        parser.header_limit(static_cast<std::uint32_t>(limits_.headerBytes));
        parser.body_limit(limits_.bodyBytes);
        // Not eager: an eager parser goes on to the body although the header has exceeded a limit.
        parser.eager(false);
        while (!parser.is_done()) {
            const bool advanced = buffer_.size() > 0 && put(parser);
            if (!advanced && !parser.is_done() && !readMore(parser)) {
                return;
            }
        }
    }

    /// Returns whether the parser took anything.
    bool put(Parser& parser) {
        error_code error;
        const std::size_t taken = parser.put(buffer_.data(), error);
        buffer_.consume(taken);
        if (error == http::error::body_limit) {
            throw HttpError("the answer is larger than " + std::to_string(limits_.bodyBytes) +
                            " bytes");
        }
        if (error && error != http::error::need_more) {
            throw HttpError("the answer is not HTTP (" + error.message() + ")");
        }
        return taken > 0;
    }

    /// Returns false where the end of the connection was the end of the answer.
    bool readMore(Parser& parser) {
        const std::size_t room = std::min(chunk, buffer_.max_size() - buffer_.size());
        if (room == 0) {
            throw HttpError("the header of the answer is too large");
        }
        try {
            const auto space = buffer_.prepare(room);
            buffer_.commit(stream_.read(static_cast<char*>(space.data()), space.size()));
            return true;
        } catch (const StreamEnded& end) {
            if (end.why != StreamEnd::closed || !parser.got_some()) {
                throw;
            }
            error_code error;
            parser.put_eof(error);
            if (error) {
                throw;
            }
            return false;
        }
    }

    static HttpResponse takeResponse(Parser& parser) {
        auto message = parser.release();
        HttpResponse response;
        response.status = message.result_int();
        for (const auto& field : message) {
            response.fields.push_back(
                {std::string(field.name_string()), std::string(field.value())});
        }
        response.body = std::move(message.body());
        return response;
    }

    const HttpClientLimits& limits_;
    SocketStream stream_;
    boost::beast::flat_buffer buffer_;
};

HttpClient::HttpClient(std::string host, std::uint16_t port, const HttpClientLimits& limits)
    : host_(std::move(host)), port_(port), limits_(limits) {}

HttpClient::~HttpClient() = default;

void HttpClient::connect() {
    const Addresses addresses = resolve(host_, port_);
    int error = 0;
    for (const addrinfo* address = addresses.get(); address != nullptr;
         address = address->ai_next) {
        base::FileDescriptor socket = connectTo(*address, limits_.connectTime, error);
        if (socket.isOpen()) {
            connection_ = std::make_unique<Connection>(std::move(socket), limits_);
            return;
        }
    }
    throw HttpError("cannot connect (" + std::generic_category().message(error) + ")");
}

HttpResponse HttpClient::exchange(const HttpRequest& request) {
    if (!connection_ || connection_->isStale()) {
        connection_.reset();
        connect();
    }
    const bool isNumericIpv6 = host_.find(':') != std::string::npos;
    std::string head = request.method + " " + request.target +
                       " HTTP/1.1\r\nHost: " + (isNumericIpv6 ? "[" + host_ + "]" : host_) + ":" +
                       std::to_string(port_) + "\r\n";
    for (const HttpField& field : request.fields) {
        head += field.name + ": " + field.value + "\r\n";
    }
    head += "Content-Length: " + std::to_string(request.body.size()) + "\r\n\r\n";
    bool keepAlive = false;
    try {
        HttpResponse response = connection_->exchange(head, request.body, keepAlive);
        if (!keepAlive) {
            connection_.reset();
        }
        return response;
    } catch (const StreamEnded& end) {
        connection_.reset();
        throw HttpError(endText(end.why));
    } catch (...) {
        connection_.reset();
        throw;
    }
}

}  // namespace wire
