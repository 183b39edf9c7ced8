// SPDX-License-Identifier: MIT
#include "wire/http/HttpConnection.h"

#include <algorithm>
#include <new>
#include <optional>
#include <utility>

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>

#include "base/Ascii.h"
#include "base/FileDescriptor.h"
#include "wire/http/SocketStream.h"

namespace wire {

namespace {

namespace http = boost::beast::http;
using boost::beast::error_code;
using std::chrono::milliseconds;

/// How late a deadline is noticed: at most a second, and a fraction of the shortest limit.
milliseconds precisionFor(const HttpLimits& limits) {
    const milliseconds shortest =
        std::min({limits.requestTime, limits.idleTime, limits.responseTime});
    return std::clamp<milliseconds>(shortest / 4, milliseconds(10), milliseconds(1000));
}

/// A request that ends the connection: answered by this status.
struct Refusal {
    unsigned status;
};

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
    Connection(ServerContext& shared, ConnectionPlaces::Place& place)
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
        const bool mayStay = parser.get().keep_alive();
        const bool http10 = parser.get().version() == 10;
        const bool isAuthorized = parser.get().count(http::field::authorization) != 0;
        place_.serveClient();
        HttpResponse response = respond(takeRequest(parser));
        if (isAuthorized && response.status == 401) {
            slowDown();
        }
        const bool keepAlive = mayStay && !place_.givesWay();
        std::string_view connection;
        if (!keepAlive) {
            connection = "close";
        } else if (http10) {
            connection = "keep-alive";
        }
        std::string head;
        appendHead(head, response, connection);
        return writeAnswer(head, response.body) && keepAlive;
    }

    /// Returns whether the client took it all. If it did not, nothing else can be written.
    bool writeAnswer(std::string_view head, std::string_view body) {
        stream_.setDeadline(limits_.responseTime);
        place_.restartSilence();
        try {
            while (!head.empty() || !body.empty()) {
                if (stream_.writeSome(head, body)) {
                    place_.restartSilence();
                    place_.serveClient();
                } else {
                    place_.awaitClient(ConnectionPlaces::Wait::untilTaken);
                }
            }
            return true;
        } catch (const StreamEnded&) {
            return false;
        }
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
        // It may give way while it waits: guesses take nobody's place, nor do those that follow.
        place_.restartSilence();
        place_.awaitClient(ConnectionPlaces::Wait::asPenalty);
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
        place_.restartSilence();
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

    ServerContext& shared_;
    const HttpLimits& limits_;
    ConnectionPlaces::Place& place_;
    milliseconds guessTime_{0};  // that the last wrong password had to wait
    SocketStream stream_;
    boost::beast::flat_buffer buffer_;
};

}  // namespace

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

HttpResponse noPlace() {
    return {503, {{"Retry-After", "1"}}, {}};
}

void serveConnection(ServerContext& context, ConnectionPlaces::Place& place) {
    Connection connection(context, place);
    try {
        connection.serve();
    } catch (const std::bad_alloc&) {
        // This client is given up, the others are served.
    }
    context.places.leave(place);
}

}  // namespace wire
