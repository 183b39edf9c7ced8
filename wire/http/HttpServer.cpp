// SPDX-License-Identifier: MIT
#include "wire/http/HttpServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <list>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>

#include "base/Ascii.h"
#include "base/FileDescriptor.h"
#include "wire/http/ConnectionPlaces.h"
#include "wire/http/SocketStream.h"

namespace wire {

namespace {

namespace http = boost::beast::http;
using boost::beast::error_code;
using std::chrono::milliseconds;

// How long a client that was refused is given to take note of it.
constexpr milliseconds lingerTime{1000};

/// What connections and listener share.
struct Shared {
    Shared(HttpHandler handler, const HttpLimits& limits, HttpGate gate)
        : handler(std::move(handler)),
          limits(limits),
          gate(std::move(gate)),
          places(limits.connections) {}

    const HttpHandler handler;
    const HttpLimits limits;
    const HttpGate gate;
    ConnectionPlaces places;
};

/// How late a deadline is noticed: at most a second, and a fraction of the shortest limit.
milliseconds precisionFor(const HttpLimits& limits) {
    const milliseconds shortest =
        std::min({limits.requestTime, limits.idleTime, limits.responseTime});
    return std::clamp<milliseconds>(shortest / 4, milliseconds(10), milliseconds(1000));
}

void appendHead(std::string& out, const HttpResponse& response, std::string_view connection) {
    out += "HTTP/1.1 ";
    out += std::to_string(response.status);
    out += ' ';
    out += reasonPhrase(response.status);
    out += "\r\n";
    for (const HttpField& field : response.fields) {
        out += field.name;
        out += ": ";
        out += field.value;
        out += "\r\n";
    }
    if (!connection.empty()) {
        out += "Connection: ";
        out += connection;
        out += "\r\n";
    }
    out += "Content-Length: ";
    out += std::to_string(response.body.size());
    out += "\r\n\r\n";
}

/// A request that ends the connection: answered by this status.
struct Refusal {
    unsigned status;
};

/// The answer to a client for whom there is no place.
HttpResponse noPlace() {
    return {503, {{"Retry-After", "1"}}, {}};
}

unsigned statusOf(const error_code& error) {
    if (error == http::error::body_limit) {
        return 413;
    }
    if (error == http::error::header_limit || error == http::error::buffer_overflow) {
        return 431;
    }
    return error == http::error::bad_version ? 505 : 400;
}

/// One client, from its first request to its last.
class Connection {
public:
    Connection(Shared& shared, ConnectionPlaces::Place& place)
        : shared_(shared),
          limits_(shared.limits),
          place_(place),
          stream_(base::FileDescriptor(place.descriptor()), precisionFor(shared.limits)),
          buffer_(limits_.headerBytes + chunk) {}

    void serve() {
        try {
            if (const auto refused = askGate()) {
                refuse(*refused);
                return;
            }
            while (serveRequest()) {
            }
        } catch (const Refusal& refusal) {
            refuse(place_.givesWay() ? noPlace() : HttpResponse{refusal.status, {}, {}});
        } catch (const StreamEnded&) {
            // The client is gone, or has been silent for too long.
            if (place_.givesWay()) {
                refuse(noPlace());
            }
        }
    }

private:
    using Parser = http::request_parser<http::string_body>;

    static constexpr std::size_t chunk = 16UL * 1024;

    /// Returns whether the connection lives on.
    bool serveRequest() {
        awaitRequest();
        Parser parser;
        try {
            readHead(parser);
            readBody(parser);
        } catch (const StreamEnded& end) {
            // What was cut off is answered, for a client that closed its sending side only.
            throw Refusal{end.why == StreamEnd::timeout ? 408U : 400U};
        }
        const bool keepAlive = parser.get().keep_alive();
        const bool http10 = parser.get().version() == 10;
        const bool isAuthorized = parser.get().count(http::field::authorization) != 0;
        place_.serveClient();
        HttpResponse response = respond(takeRequest(parser));
        if (isAuthorized && response.status == 401) {
            slowDown();
        }
        std::string_view connection;
        if (!keepAlive) {
            connection = "close";
        } else if (http10) {
            connection = "keep-alive";
        }
        std::string head;
        appendHead(head, response, connection);
        stream_.setDeadline(limits_.responseTime);
        stream_.write(head, response.body);
        return keepAlive;
    }

    std::optional<HttpResponse> askGate() {
        try {
            return shared_.gate ? shared_.gate(place_.descriptor()) : std::nullopt;
        } catch (...) {
            return HttpResponse{500, {}, {}};
        }
    }

    /// Waits before a wrong password is answered: whoever guesses gets ever fewer guesses.
    void slowDown() {
        constexpr int first = 16;  // of the longest
        guessTime_ = guessTime_.count() == 0 ? limits_.passwordTime / first
                                             : std::min(2 * guessTime_, limits_.passwordTime);
        // It may give way while it waits: guesses take nobody's place.
        place_.awaitClient();
        stream_.pause(guessTime_);
        place_.serveClient();
    }

    HttpResponse respond(HttpRequest&& request) {
        try {
            return shared_.handler(std::move(request));
        } catch (...) {
            return {500, {}, {}};
        }
    }

    void refuse(const HttpResponse& response) {
        place_.awaitClient();
        try {
            std::string head;
            appendHead(head, response, "close");
            stream_.setDeadline(lingerTime);
            stream_.write(head);
            stream_.drain();
        } catch (const StreamEnded&) {
            // Nobody is there to be told.
        }
    }

    /// Waits for the first byte of a request, then gives it its deadline. Empty lines before a request
    /// are skipped, as HTTP advises.
    void awaitRequest() {
        stream_.setDeadline(limits_.idleTime);
        while (true) {
            while (buffer_.size() > 0 && (here() == '\r' || here() == '\n')) {
                buffer_.consume(1);
            }
            if (buffer_.size() > 0) {
                break;
            }
            readMore();
        }
        stream_.setDeadline(limits_.requestTime);
    }

    char here() const { return *static_cast<const char*>(buffer_.data().data()); }

    void readMore() {
        const std::size_t room = std::min(chunk, buffer_.max_size() - buffer_.size());
        if (room == 0) {
            // Only a header or a line between chunks can fill the buffer without being complete.
            throw Refusal{431};
        }
        const auto space = buffer_.prepare(room);
        place_.awaitClient();
        buffer_.commit(stream_.read(static_cast<char*>(space.data()), space.size()));
    }

    void readHead(Parser& parser) {
        // The limit is kept here, for the request line and all fields together; that of the parser
        // is for each of them.
        parser.header_limit(static_cast<std::uint32_t>(limits_.headerBytes + 1));
        parser.body_limit(limits_.bodyBytes);
        std::size_t consumed = 0;
        while (true) {
            consumed += put(parser);
            const bool done = parser.is_header_done();
            if (consumed + (done ? 0 : buffer_.size()) > limits_.headerBytes) {
                throw Refusal{431};
            }
            if (done) {
                break;
            }
            readMore();
        }
        requireKnownCoding(parser);
        meetExpectation(parser);
    }

    /// What a coding that is not decoded here leaves unread would be taken for the next request.
    static void requireKnownCoding(const Parser& parser) {
        const auto [begin, end] = parser.get().equal_range(http::field::transfer_encoding);
        for (auto coding = begin; coding != end; ++coding) {
            const auto value = coding->value();
            if (coding != begin ||
                !base::equalIgnoringCase({value.data(), value.size()}, "chunked")) {
                throw Refusal{501};
            }
        }
    }

    void readBody(Parser& parser) {
        parser.eager(true);
        while (!parser.is_done()) {
            if (buffer_.size() == 0) {
                readMore();
            }
            if (put(parser) == 0 && !parser.is_done()) {
                readMore();
            }
        }
    }

    /// Hands the parser what is there; returns how many bytes it took.
    std::size_t put(Parser& parser) {
        if (buffer_.size() == 0) {
            return 0;
        }
        error_code error;
        const std::size_t taken = parser.put(buffer_.data(), error);
        buffer_.consume(taken);
        if (error && error != http::error::need_more) {
            throw Refusal{statusOf(error)};
        }
        return taken;
    }

    void meetExpectation(const Parser& parser) {
        const auto expectation = parser.get().find(http::field::expect);
        if (expectation == parser.get().end()) {
            return;
        }
        const auto value = expectation->value();
        if (!base::equalIgnoringCase({value.data(), value.size()}, "100-continue")) {
            throw Refusal{417};
        }
        if (buffer_.size() == 0 && parser.get().version() > 10) {
            stream_.write("HTTP/1.1 100 Continue\r\n\r\n");
        }
    }

    static HttpRequest takeRequest(Parser& parser) {
        auto message = parser.release();
        const auto text = [](boost::beast::string_view view) {
            return std::string(view.data(), view.size());
        };
        HttpRequest request;
        request.method = text(message.method_string());
        request.target = text(message.target());
        request.http10 = message.version() == 10;
        request.fields.reserve(16);
        for (const auto& field : message) {
            request.fields.push_back({text(field.name_string()), text(field.value())});
        }
        request.body = std::move(message.body());
        return request;
    }

    Shared& shared_;
    const HttpLimits& limits_;
    ConnectionPlaces::Place& place_;
    milliseconds guessTime_{0};  // that the last wrong password had to wait
    SocketStream stream_;
    boost::beast::flat_buffer buffer_;
};

/// The body of a connection's thread.
void serveConnection(const std::shared_ptr<Shared>& shared, ConnectionPlaces::Place* place) {
    Connection connection(*shared, *place);
    connection.serve();
    shared->places.leave(*place);
}

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

/// Clients beyond the limit, until they have taken note of it.
class TurnedAway {
public:
    void add(base::FileDescriptor client) {
        std::string head;
        appendHead(head, noPlace(), "close");
        send(client.get(), head.data(), head.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        shutdown(client.get(), SHUT_WR);
        if (clients_.size() >= mostWaiting) {
            clients_.pop_front();
        }
        clients_.push_back({std::move(client), SocketStream::Clock::now() + lingerTime});
    }

    void appendTo(std::vector<pollfd>& polled) const {
        for (const Client& client : clients_) {
            polled.push_back({client.socket.get(), POLLIN, 0});
        }
    }

    /// Milliseconds until the next has waited long enough; -1 if there is none.
    int patience() const {
        if (clients_.empty()) {
            return -1;
        }
        const auto left = std::chrono::duration_cast<milliseconds>(clients_.front().until -
                                                                   SocketStream::Clock::now());
        return std::max(0, static_cast<int>(left.count()) + 1);
    }

    /// Drops what clients still send, and lets go of those that closed or have waited long enough.
    void look() {
        const auto now = SocketStream::Clock::now();
        clients_.remove_if([&](const Client& client) {
            std::array<char, 4096> dropped{};
            const ssize_t count =
                recv(client.socket.get(), dropped.data(), dropped.size(), MSG_DONTWAIT);
            const bool closed = count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR);
            return closed || now >= client.until;
        });
    }

private:
    static constexpr std::size_t mostWaiting = 64;

    struct Client {
        base::FileDescriptor socket;
        SocketStream::Clock::time_point until;
    };

    std::list<Client> clients_;
};

}  // namespace

/// Takes connections in, on a thread of its own.
class HttpServer::Listener {
public:
    Listener(const ListenAddress& address, HttpHandler handler, const HttpLimits& limits,
             HttpGate gate)
        : shared_(std::make_shared<Shared>(std::move(handler), limits, std::move(gate))),
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
        std::vector<pollfd> polled;
        while (true) {
            polled.assign({{wake_.get(), POLLIN, 0}, {socket_.get(), POLLIN, 0}});
            turnedAway_.appendTo(polled);
            poll(polled.data(), polled.size(), turnedAway_.patience());
            if (polled[0].revents != 0) {
                return;
            }
            turnedAway_.look();
            if (polled[1].revents != 0) {
                acceptConnection();
            }
        }
    }

    void acceptConnection() {
        base::FileDescriptor client(accept4(socket_.get(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!client.isOpen()) {
            if (errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM) {
                // The client stays in the queue; asking for it at once again would only burn time.
                pollfd wake{wake_.get(), POLLIN, 0};
                constexpr int pause = 100;
                poll(&wake, 1, pause);
            }
            return;
        }
        ConnectionPlaces::Place* const place = shared_->places.enter(client.get());
        if (place == nullptr) {
            turnedAway_.add(std::move(client));
            return;
        }
        try {
            std::thread(serveConnection, shared_, place).detach();
            client.release();
        } catch (const std::system_error&) {
            // No thread is to be had.
            shared_->places.leave(*place);
            turnedAway_.add(std::move(client));
        }
    }

    const std::shared_ptr<Shared> shared_;
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
