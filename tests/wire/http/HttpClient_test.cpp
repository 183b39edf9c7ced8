// SPDX-License-Identifier: MIT
#include "wire/http/HttpClient.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <future>
#include <thread>

#include <gtest/gtest.h>

#include "base/FileDescriptor.h"
#include "wire/http/HttpServer.h"

using namespace wire;
using std::chrono::milliseconds;

namespace {

/// Takes one connection, waits for a request and sends the bytes given, whatever they are.
class CannedServer {
public:
    explicit CannedServer(std::string answer)
        : socket_(::socket(AF_INET, SOCK_STREAM, 0)), answer_(std::move(answer)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        bind(socket_.get(), reinterpret_cast<sockaddr*>(&address), size);
        listen(socket_.get(), 1);
        getsockname(socket_.get(), reinterpret_cast<sockaddr*>(&address), &size);
        port_ = ntohs(address.sin_port);
        thread_ = std::thread([this] { serve(); });
    }
    ~CannedServer() { thread_.join(); }
    CannedServer(const CannedServer&) = delete;
    CannedServer& operator=(const CannedServer&) = delete;

    std::uint16_t port() const { return port_; }

private:
    void serve() {
        const base::FileDescriptor client(accept(socket_.get(), nullptr, nullptr));
        std::array<char, 4096> buffer{};
        recv(client.get(), buffer.data(), buffer.size(), 0);
        send(client.get(), answer_.data(), answer_.size(), MSG_NOSIGNAL);
    }

    base::FileDescriptor socket_;
    std::string answer_;
    std::uint16_t port_ = 0;
    std::thread thread_;
};

HttpResponse ask(const std::string& answer) {
    const CannedServer server(answer);
    HttpClient client("127.0.0.1", server.port());
    return client.exchange({"POST", "/", false, {}, "body"});
}

std::string whatIsWrong(const std::string& answer) {
    try {
        ask(answer);
        return "nothing";
    } catch (const HttpError& error) {
        return error.what();
    }
}

HttpResponse describe(HttpRequest&& request) {
    return {200, {{"Host-Seen", findField(request.fields, "Host").value_or("")}}, request.body};
}

}  // namespace

TEST(HttpClient, exchangesOverOneConnection) {
    HttpLimits limits;
    limits.connections = 1;
    const HttpServer server(ListenAddress("127.0.0.1", 0), describe, limits);
    HttpClient client("127.0.0.1", server.port());
    for (int i = 0; i < 3; ++i) {
        const HttpResponse response = client.exchange({"POST", "/", false, {}, "body"});
        EXPECT_EQ(response.status, 200U);
        EXPECT_EQ(response.body, "body");
        EXPECT_EQ(findField(response.fields, "Host-Seen"),
                  "127.0.0.1:" + std::to_string(server.port()));
    }
}

TEST(HttpClient, connectsAgainWhereTheServerHasClosed) {
    HttpLimits limits;
    limits.idleTime = milliseconds(50);
    limits.connections = 1;
    const HttpServer server(ListenAddress("127.0.0.1", 0), describe, limits);
    HttpClient client("127.0.0.1", server.port());
    EXPECT_EQ(client.exchange({"POST", "/", false, {}, "1"}).body, "1");
    HttpClient other("127.0.0.1", server.port());
    while (other.exchange({"POST", "/", false, {}, "?"}).status == 503) {
        // Once the place is free, the first client's connection is closed.
    }
    HttpResponse again;
    do {
        again = client.exchange({"POST", "/", false, {}, "2"});
    } while (again.status == 503);
    EXPECT_EQ(again.body, "2");
}

TEST(HttpClient, connectsAgainAfterConnectionClose) {
    const HttpServer server(ListenAddress("127.0.0.1", 0), describe);
    HttpClient client("localhost", server.port());
    const HttpFields closing{{"Connection", "close"}};
    EXPECT_EQ(client.exchange({"POST", "/", false, closing, "1"}).body, "1");
    EXPECT_EQ(client.exchange({"POST", "/", false, {}, "2"}).body, "2");
}

TEST(HttpClient, readsChunksAndTrailers) {
    const HttpResponse response =
        ask("HTTP/1.1 200 OK\r\ntransfer-encoding: chunked\r\nTrailer: CIMStatusCode\r\n\r\n"
            "3\r\nabc\r\n2\r\nde\r\n0\r\nCIMStatusCode: 5\r\n\r\n");
    EXPECT_EQ(response.body, "abcde");
    EXPECT_EQ(findField(response.fields, "CIMStatusCode"), "5");
}

TEST(HttpClient, readsLengthsWithLeadingZeros) {
    EXPECT_EQ(ask("HTTP/1.1 200 OK\r\ncontent-length: 0000000003\r\n\r\nabc").body, "abc");
}

TEST(HttpClient, readsUntilTheEndWhereThereIsNoLength) {
    EXPECT_EQ(ask("HTTP/1.1 400 Bad Request\r\nCIMError: header-mismatch\r\n\r\n").status, 400U);
    EXPECT_EQ(ask("HTTP/1.0 200 OK\r\n\r\nall of it").body, "all of it");
}

TEST(HttpClient, passesOverInterimAnswers) {
    EXPECT_EQ(
        ask("HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\nx").body,
        "x");
}

TEST(HttpClient, saysWhatWentWrong) {
    EXPECT_EQ(whatIsWrong(""), "the server closed the connection without a complete answer");
    EXPECT_EQ(whatIsWrong("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nab"),
              "the server closed the connection without a complete answer");
    EXPECT_EQ(whatIsWrong("SSH-2.0-x\r\n\r\n").substr(0, 23), "the answer is not HTTP ");
    EXPECT_EQ(whatIsWrong("HTTP/1.1 200 OK\r\nX: " + std::string(200'000, 'x') + "\r\n\r\n")
                  .substr(0, 11),
              "the answer ");
}

TEST(HttpClient, refusesAnAnswerBeyondItsLimit) {
    const CannedServer server("HTTP/1.1 200 OK\r\nContent-Length: 11\r\n\r\n01234567890");
    HttpClientLimits limits;
    limits.bodyBytes = 10;
    HttpClient client("127.0.0.1", server.port(), limits);
    try {
        client.exchange({"POST", "/", false, {}, ""});
        FAIL();
    } catch (const HttpError& error) {
        EXPECT_STREQ(error.what(), "the answer is larger than 10 bytes");
    }
}

TEST(HttpClient, givesUpWaiting) {
    std::promise<void> release;
    const std::shared_future<void> released = release.get_future().share();
    HttpServer server(ListenAddress("127.0.0.1", 0), [released](HttpRequest&&) {
        released.wait();
        return HttpResponse{};
    });
    HttpClientLimits limits;
    limits.answerTime = milliseconds(100);
    HttpClient client("127.0.0.1", server.port(), limits);
    try {
        client.exchange({"POST", "/", false, {}, ""});
        FAIL();
    } catch (const HttpError& error) {
        EXPECT_STREQ(error.what(), "the server did not answer in time");
    }
    release.set_value();
    EXPECT_TRUE(server.stop(milliseconds(10'000)));
}

TEST(HttpClient, saysThatNobodyListens) {
    std::uint16_t port = 0;
    {
        const HttpServer server(ListenAddress("127.0.0.1", 0), describe);
        port = server.port();
    }
    HttpClient client("127.0.0.1", port);
    try {
        client.exchange({"POST", "/", false, {}, ""});
        FAIL();
    } catch (const HttpError& error) {
        EXPECT_STREQ(error.what(), "cannot connect (Connection refused)");
    }
}

TEST(HttpClient, saysThatTheHostIsNotKnown) {
    HttpClient client("no host of this name", 5988);
    try {
        client.exchange({"POST", "/", false, {}, ""});
        FAIL();
    } catch (const HttpError& error) {
        EXPECT_EQ(std::string(error.what()).substr(0, 21), "the host is not known");
    }
}
