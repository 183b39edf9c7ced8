// SPDX-License-Identifier: MIT
#include "wire/http/HttpServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <new>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "base/FileDescriptor.h"
#include "wire/http/ConnectionPlaces.h"
#include "wire/http/HttpConnection.h"
#include "wire/http/TurnedAway.h"

namespace wire {

namespace {

using std::chrono::milliseconds;

/// The socket address of a listening address.
struct SocketAddress {
    explicit SocketAddress(const ListenAddress& address) {
        if (address.isIpv6()) {
            sockaddr_in6 in6{};
            in6.sin6_family = AF_INET6;
            in6.sin6_port = htons(address.port());
            in6.sin6_addr = in6addr_loopback;
            set(in6);
        } else {
            sockaddr_in in4{};
            in4.sin_family = AF_INET;
            in4.sin_port = htons(address.port());
            inet_pton(AF_INET, address.address().c_str(), &in4.sin_addr);
            set(in4);
        }
    }

    template <typename T>
    void set(const T& value) {
        static_assert(sizeof value <= sizeof storage);
        std::copy_n(reinterpret_cast<const char*>(&value), sizeof value,
                    reinterpret_cast<char*>(&storage));
        size = sizeof value;
    }

    sockaddr* get() { return reinterpret_cast<sockaddr*>(&storage); }

    sockaddr_storage storage{};
    socklen_t size = 0;
};

base::FileDescriptor listenAt(const ListenAddress& address) {
    const auto fail = [&](const char* what) {
        throw std::system_error(errno, std::generic_category(),
                                std::string(what) + " " + address.address() + " port " +
                                    std::to_string(address.port()));
    };
    SocketAddress where(address);
    base::FileDescriptor socket(::socket(where.storage.ss_family, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!socket.isOpen()) {
        fail("cannot make a socket for");
    }
    const int yes = 1;
    setsockopt(socket.get(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    if (bind(socket.get(), where.get(), where.size) != 0) {
        fail("cannot listen at");
    }
    if (listen(socket.get(), SOMAXCONN) != 0) {
        fail("cannot listen at");
    }
    return socket;
}

std::uint16_t portOf(const base::FileDescriptor& socket) {
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    getsockname(socket.get(), reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.ss_family == AF_INET6
                     ? reinterpret_cast<const sockaddr_in6&>(address).sin6_port
                     : reinterpret_cast<const sockaddr_in&>(address).sin_port);
}

}  // namespace

/// Takes connections in, on a thread of its own.
class HttpServer::Listener {
public:
    Listener(const ListenAddress& address, HttpHandler handler, const HttpLimits& limits,
             HttpGate gate)
        : shared_(std::make_shared<ServerContext>(std::move(handler), limits, std::move(gate))),
          socket_(listenAt(address)),
          wake_(eventfd(0, EFD_CLOEXEC)),
          port_(portOf(socket_)),
          url_(std::string("http://") + (address.isIpv6() ? "[::1]" : address.address()) + ":" +
               std::to_string(port_)),
          thread_([this] { run(); }) {}

    ~Listener() { stop(milliseconds(0)); }

    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    std::uint16_t port() const { return port_; }
    const std::string& url() const { return url_; }

    bool stop(milliseconds grace) {
        if (thread_.joinable()) {
            eventfd_write(wake_.get(), 1);
            thread_.join();
            socket_.close();
        }
        // An answer can still be written; the next request is the end of the connection.
        shared_->places.endReading();
        return shared_->places.waitUntilEmpty(ConnectionPlaces::Clock::now() + grace);
    }

private:
    void run() {
        bool goesOn = true;
        while (goesOn) {
            try {
                goesOn = awaitClients();
            } catch (const std::bad_alloc&) {
                goesOn = !isWokenWhilePausing();
            }
        }
    }

    /// Returns false if the server stops.
    bool awaitClients() {
        std::vector<pollfd> polled = {{wake_.get(), POLLIN, 0}, {socket_.get(), POLLIN, 0}};
        turnedAway_.appendTo(polled);
        poll(polled.data(), polled.size(), turnedAway_.patience());
        if (polled[0].revents != 0) {
            return false;
        }
        turnedAway_.look();
        if (polled[1].revents != 0) {
            acceptConnection();
        }
        return true;
    }

    /// Waits, where something is lacking that may come back: asking for it at once again would only
    /// burn time. Returns whether the server stops.
    bool isWokenWhilePausing() {
        pollfd wake{wake_.get(), POLLIN, 0};
        constexpr int pause = 100;
        return poll(&wake, 1, pause) > 0;
    }

    void acceptConnection() {
        base::FileDescriptor client(accept4(socket_.get(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!client.isOpen()) {
            if (errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM) {
                // The client stays in the queue.
                isWokenWhilePausing();
            }
            return;
        }
        ConnectionPlaces::Place* const place = shared_->places.enter(client.get());
        if (place == nullptr) {
            turnedAway_.add(std::move(client));
            return;
        }
        try {
            std::thread([context = shared_, place] { serveConnection(*context, *place); }).detach();
            client.release();
        } catch (const std::exception&) {
            // No thread is to be had, or no memory for it.
            shared_->places.leave(*place);
            turnedAway_.add(std::move(client));
        }
    }

    const std::shared_ptr<ServerContext> shared_;
    base::FileDescriptor socket_;
    base::FileDescriptor wake_;
    std::uint16_t port_;
    std::string url_;
    TurnedAway turnedAway_;  // the listener's thread only
    std::thread thread_;
};

HttpServer::HttpServer(const ListenAddress& address, HttpHandler handler, const HttpLimits& limits,
                       HttpGate gate)
    : listener_(std::make_unique<Listener>(address, std::move(handler), limits, std::move(gate))) {}

HttpServer::~HttpServer() = default;

std::uint16_t HttpServer::port() const {
    return listener_->port();
}

std::string HttpServer::url() const {
    return listener_->url();
}

bool HttpServer::stop(milliseconds grace) {
    return listener_->stop(grace);
}

}  // namespace wire
