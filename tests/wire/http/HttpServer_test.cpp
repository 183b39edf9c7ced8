// SPDX-License-Identifier: MIT
#include "wire/http/HttpServer.h"

#include <atomic>
#include <condition_variable>
#include <future>
#include <list>
#include <mutex>
#include <stdexcept>
#include <system_error>
#include <thread>

#include <gtest/gtest.h>

#include "tests/support/RawConnection.h"

using namespace wire;
using std::chrono::milliseconds;

namespace {

/// Answers with what it was asked: "POST /x [body]".
HttpResponse echo(HttpRequest&& request) {
    return {200,
            {{"X-Test", "yes"}},
            request.method + " " + request.target + " [" + request.body + "]"};
}

HttpLimits shortTimes() {
    HttpLimits limits;
    limits.requestTime = milliseconds(300);
    limits.idleTime = milliseconds(300);
    return limits;
}

/// A server that echoes.
class HttpServerTest : public testing::Test {
protected:
    void start(const HttpLimits& limits, HttpHandler handler = echo) {
        server_ =
            std::make_unique<HttpServer>(ListenAddress("127.0.0.1", 0), std::move(handler), limits);
    }
    void SetUp() override { start({}); }

    std::uint16_t port() const { return server_->port(); }

    /// The only response to a request after which nothing more is sent.
    std::string answer(const std::string& request) const {
        RawConnection connection(port());
        connection.send(request);
        connection.finishSending();
        return connection.readAll();
    }

    int statusFor(const std::string& request) const { return statusOf(answer(request)); }

    /// What a client is told that comes again as long as there is no place for it, ten seconds at
    /// most.
    int statusOfNextClient() const {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        int status = 503;
        while (status == 503 && std::chrono::steady_clock::now() < end) {
            RawConnection next(port());
            next.send("POST /next HTTP/1.1\r\nContent-Length: 0\r\n\r\n");
            status = statusOf(next.readResponse());
            std::this_thread::sleep_for(milliseconds(5));
        }
        return status;
    }

    std::unique_ptr<HttpServer> server_;
};

const std::string small = "POST /x HTTP/1.1\r\nHost: h\r\nContent-Length: 3\r\n\r\nabc";

/// A request whose line and header are `size` bytes long.
std::string requestWithHeaderOf(std::size_t size) {
    const std::string begin = "POST / HTTP/1.1\r\nContent-Length: 0\r\nX-Fill: ";
    const std::string end = "\r\n\r\n";
    return begin + std::string(size - begin.size() - end.size(), 'x') + end;
}

std::string requestWithBodyOf(std::size_t size) {
    return "POST / HTTP/1.1\r\nContent-Length: " + std::to_string(size) + "\r\n\r\n" +
           std::string(size, 'b');
}

std::string chunkedRequestWithBodyOf(std::size_t size) {
    std::string request = "POST / HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n";
    while (size > 0) {
        const std::size_t chunk = std::min<std::size_t>(size, 0x10000);
        std::array<char, 16> length{};
        std::snprintf(length.data(), length.size(), "%zx\r\n", chunk);
        request += length.data() + std::string(chunk, 'b') + "\r\n";
        size -= chunk;
    }
    return request + "0\r\n\r\n";
}

}  // namespace

TEST_F(HttpServerTest, answersWithStatusFieldsAndBody) {
    RawConnection connection(port());
    connection.send(small);
    EXPECT_EQ(connection.readResponse(),
              "HTTP/1.1 200 OK\r\nX-Test: yes\r\nContent-Length: 13\r\n\r\nPOST /x [abc]");
}

TEST_F(HttpServerTest, knowsItsUrl) {
    EXPECT_EQ(server_->url(), "http://127.0.0.1:" + std::to_string(port()));
}

TEST_F(HttpServerTest, listensOnIpv6) {
    try {
        const HttpServer server(ListenAddress("::1", 0), echo);
        EXPECT_EQ(server.url(), "http://[::1]:" + std::to_string(server.port()));
    } catch (const std::system_error& error) {
        GTEST_SKIP() << "no IPv6 here: " << error.what();
    }
}

TEST_F(HttpServerTest, aTakenPortIsNamed) {
    try {
        const HttpServer second(ListenAddress("127.0.0.1", port()), echo);
        FAIL();
    } catch (const std::system_error& error) {
        EXPECT_EQ(std::string(error.what()), "cannot listen at 127.0.0.1 port " +
                                                 std::to_string(port()) +
                                                 ": Address already in use");
    }
}

TEST_F(HttpServerTest, keepsConnectionsOpen) {
    RawConnection connection(port());
    for (int i = 0; i < 3; ++i) {
        connection.send(small);
        EXPECT_EQ(bodyOf(connection.readResponse()), "POST /x [abc]");
    }
}

TEST_F(HttpServerTest, answersRequestsSentAtOnceInTheirOrder) {
    const std::string answers = answer(small + "\r\nPOST /y HTTP/1.1\r\nContent-Length: 0\r\n\r\n");
    const std::size_t first = answers.find("POST /x [abc]");
    EXPECT_NE(first, std::string::npos);
    EXPECT_NE(answers.find("POST /y []", first), std::string::npos);
}

TEST_F(HttpServerTest, closesWhereTheClientAsksForIt) {
    RawConnection connection(port());
    connection.send("POST / HTTP/1.1\r\nConnection: close\r\nContent-Length: 0\r\n\r\n");
    EXPECT_EQ(fieldOf(connection.readAll(), "Connection"), "close");
}

TEST_F(HttpServerTest, closesAfterHttp10UnlessAskedToStay) {
    RawConnection closing(port());
    closing.send("POST / HTTP/1.0\r\nContent-Length: 0\r\n\r\n");
    EXPECT_EQ(fieldOf(closing.readAll(), "Connection"), "close");

    RawConnection staying(port());
    for (int i = 0; i < 2; ++i) {
        staying.send("POST / HTTP/1.0\r\nConnection: keep-alive\r\nContent-Length: 0\r\n\r\n");
        EXPECT_EQ(fieldOf(staying.readResponse(), "Connection"), "keep-alive");
    }
}

TEST_F(HttpServerTest, takesAnyMethod) {
    EXPECT_EQ(bodyOf(answer("M-POST /cimom HTTP/1.1\r\nContent-Length: 0\r\n\r\n")),
              "M-POST /cimom []");
    EXPECT_EQ(bodyOf(answer("POST * HTTP/1.1\r\nContent-Length: 0\r\n\r\n")), "POST * []");
}

TEST_F(HttpServerTest, takesChunks) {
    EXPECT_EQ(bodyOf(answer("POST / HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n"
                            "2;ext=1\r\nab\r\n1\r\nc\r\n0\r\nTrailer: x\r\n\r\n")),
              "POST / [abc]");
}

TEST_F(HttpServerTest, takesARequestByteByByte) {
    RawConnection connection(port());
    for (const char c : small) {
        ASSERT_TRUE(connection.send(std::string_view(&c, 1)));
    }
    EXPECT_EQ(bodyOf(connection.readResponse()), "POST /x [abc]");
}

TEST_F(HttpServerTest, tellsClientsThatWaitForItToContinue) {
    RawConnection connection(port());
    connection.send("POST / HTTP/1.1\r\nExpect: 100-Continue\r\nContent-Length: 3\r\n\r\n");
    EXPECT_EQ(connection.readResponse(), "HTTP/1.1 100 Continue\r\n\r\n");
    connection.send("abc");
    EXPECT_EQ(bodyOf(connection.readResponse()), "POST / [abc]");
}

TEST_F(HttpServerTest, doesNotTellThoseWhoHaveNotWaited) {
    const std::string answered =
        answer("POST / HTTP/1.1\r\nExpect: 100-continue\r\nContent-Length: 3\r\n\r\nabc");
    EXPECT_EQ(statusOf(answered), 200);
}

TEST_F(HttpServerTest, otherExpectationsFail) {
    EXPECT_EQ(statusFor("POST / HTTP/1.1\r\nExpect: wonders\r\nContent-Length: 0\r\n\r\n"), 417);
}

TEST_F(HttpServerTest, refusesWhatIsNotHttp) {
    EXPECT_EQ(statusFor("HELLO\r\n\r\n"), 400);
    EXPECT_EQ(statusFor("POST / HTTP/1.1\r\nbroken\r\n\r\n"), 400);
    EXPECT_EQ(statusFor("POST / HTTP/1.1\r\nContent-Length: x\r\n\r\n"), 400);
    EXPECT_EQ(statusFor("POST / HTTP/1.1\r\nContent-Length: -1\r\n\r\n"), 400);
    EXPECT_EQ(statusFor("POST / HTTP/1.1\r\nContent-Length: 1\r\nContent-Length: 2\r\n\r\nab"),
              400);
    EXPECT_EQ(statusFor("POST / HTTP/1.1\r\nContent-Length: 3\r\nTransfer-Encoding: chunked\r\n\r\n"
                        "3\r\nabc\r\n0\r\n\r\n"),
              400);
    EXPECT_EQ(statusFor("POST / HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\nxyz\r\n"), 400);
    EXPECT_EQ(statusFor(std::string("POST / HTTP/1.1\r\nA: b\0c\r\n\r\n", 28)), 400);
    EXPECT_EQ(statusFor("\x16\x03\x01\x02"), 400) << "a client that speaks TLS";
}

TEST_F(HttpServerTest, refusesOtherVersions) {
    EXPECT_EQ(statusFor("POST / HTTP/2.0\r\n\r\n"), 505);
    EXPECT_EQ(statusFor("POST / HTTP/0.9\r\n\r\n"), 505);
}

TEST_F(HttpServerTest, answersWhatWasCutOff) {
    EXPECT_EQ(statusFor("POST / HT"), 400);
    EXPECT_EQ(statusFor("POST / HTTP/1.1\r\nContent-Length: 10\r\n\r\nabc"), 400);
    EXPECT_EQ(statusFor("POST / HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nab"), 400);
}

TEST_F(HttpServerTest, takesAHeaderOf16KiBAndNoMore) {
    EXPECT_EQ(statusFor(requestWithHeaderOf(16 * 1024)), 200);
    EXPECT_EQ(statusFor(requestWithHeaderOf(16 * 1024 + 1)), 431);
    EXPECT_EQ(statusFor(requestWithHeaderOf(64 * 1024)), 431);
    EXPECT_EQ(statusFor("POST /" + std::string(20'000, 'x') + " HTTP/1.1\r\n\r\n"), 431);
}

TEST_F(HttpServerTest, takesABodyOf1MiBAndNoMore) {
    EXPECT_EQ(statusFor(requestWithBodyOf(1024 * 1024)), 200);
    EXPECT_EQ(statusFor(requestWithBodyOf(1024 * 1024 + 1)), 413);
    EXPECT_EQ(statusFor("POST / HTTP/1.1\r\nContent-Length: 18446744073709551615\r\n\r\n"), 413);
}

TEST_F(HttpServerTest, takesChunksOf1MiBAltogetherAndNoMore) {
    EXPECT_EQ(statusFor(chunkedRequestWithBodyOf(1024 * 1024)), 200);
    EXPECT_EQ(statusFor(chunkedRequestWithBodyOf(1024 * 1024 + 1)), 413);
}

TEST_F(HttpServerTest, whoSendsTooMuchStillSeesTheAnswer) {
    RawConnection connection(port());
    connection.send(requestWithBodyOf(8 * 1024 * 1024));
    EXPECT_EQ(statusOf(connection.readAll()), 413);
}

TEST_F(HttpServerTest, of65ConnectionsTheLongestSilentGivesWay) {
    std::list<RawConnection> connections;
    for (int i = 0; i < 64; ++i) {
        connections.emplace_back(port()).send(small);
        EXPECT_EQ(statusOf(connections.back().readResponse()), 200);
        if (i == 1) {
            // Silence counts from when a thread has written its answer, which it may come to notice
            // after the client: the second shall be first.
            std::this_thread::sleep_for(milliseconds(500));
        }
    }
    connections.front().send(small);
    connections.front().readResponse();
    // The last answers are written; their threads have to come to wait for the next request.
    std::this_thread::sleep_for(milliseconds(200));
    RawConnection beyond(port());
    beyond.send(small);
    EXPECT_EQ(statusOf(beyond.readResponse()), 200);

    const std::string refused = std::next(connections.begin())->readAll();
    EXPECT_EQ(statusOf(refused), 503);
    EXPECT_EQ(fieldOf(refused, "Connection"), "close");
    EXPECT_EQ(fieldOf(refused, "Retry-After"), "1");
    connections.erase(std::next(connections.begin()));
    for (RawConnection& connection : connections) {
        connection.send(small);
        EXPECT_EQ(statusOf(connection.readResponse()), 200) << "the others are served";
    }
}

TEST_F(HttpServerTest, whoNeverCompletesARequestGivesWay) {
    HttpLimits one;
    one.connections = 1;
    start(one);
    for (const char* const begun :
         {"", "\r\n", "POST / HT", "POST / HTTP/1.1\r\nContent-Length: 3\r\n\r\nab"}) {
        RawConnection silent(port());
        silent.send(begun);
        int status = 503;
        while (status == 503) {  // what was sent may not have been read yet
            RawConnection next(port());
            next.send(small);
            status = statusOf(next.readResponse());
        }
        EXPECT_EQ(status, 200) << begun;
        EXPECT_EQ(statusOf(silent.readAll()), 503) << begun;
    }
}

TEST_F(HttpServerTest, whoIsBeingServedKeepsThePlace) {
    HttpLimits one;
    one.connections = 1;
    std::promise<void> inside;
    std::promise<void> released;
    start(one, [&](HttpRequest&& request) {
        inside.set_value();
        released.get_future().wait();
        return echo(std::move(request));
    });
    RawConnection served(port());
    served.send(small);
    inside.get_future().wait();
    // Also that many refused clients hold up nobody.
    std::list<RawConnection> beyond;
    for (int i = 0; i < 200; ++i) {
        beyond.emplace_back(port());
    }
    const std::string refused = beyond.back().readAll();
    EXPECT_EQ(statusOf(refused), 503);
    EXPECT_EQ(fieldOf(refused, "Connection"), "close");
    released.set_value();
    EXPECT_EQ(statusOf(served.readResponse()), 200);
}

TEST_F(HttpServerTest, aWrongPasswordIsAnsweredEverMoreSlowly) {
    HttpLimits limits;
    limits.passwordTime = milliseconds(160);
    start(limits, [](HttpRequest&&) { return HttpResponse{401, {}, {}}; });
    RawConnection guessing(port());
    for (const int least : {10, 20, 40, 80, 160, 160}) {
        const auto begin = std::chrono::steady_clock::now();
        guessing.send("POST / HTTP/1.1\r\nAuthorization: Basic x\r\nContent-Length: 0\r\n\r\n");
        EXPECT_EQ(statusOf(guessing.readResponse()), 401);
        EXPECT_GE(std::chrono::steady_clock::now() - begin, milliseconds(least));
    }
}

TEST_F(HttpServerTest, onlyWrongPasswordsWait) {
    HttpLimits limits;
    limits.passwordTime = std::chrono::hours(1);
    start(limits, [](HttpRequest&& request) {
        return HttpResponse{findField(request.fields, "Authorization") ? 200U : 401U, {}, {}};
    });
    EXPECT_EQ(statusFor(small), 401);
    EXPECT_EQ(statusFor("POST / HTTP/1.0\r\nAuthorization: Basic x\r\n\r\n"), 200);
}

TEST_F(HttpServerTest, aWrongPasswordThatWaitsTakesNobodysPlace) {
    HttpLimits limits;
    limits.connections = 1;
    limits.passwordTime = std::chrono::hours(1);
    start(limits, [](HttpRequest&& request) {
        return HttpResponse{findField(request.fields, "Authorization") ? 401U : 200U, {}, {}};
    });
    const std::string guess =
        "POST / HTTP/1.1\r\nAuthorization: Basic x\r\nContent-Length: 0\r\n\r\n";
    std::string guesses;  // more than the server reads at once, so that some stay unread
    while (guesses.size() < 40UL * 1024) {
        guesses += guess;
    }
    for (const std::string& sent : {guess, guesses}) {
        RawConnection guessing(port());
        guessing.send(sent);
        EXPECT_EQ(statusOfNextClient(), 200);
        EXPECT_EQ(statusOf(guessing.readAll()), 401) << "at once";
    }
}

TEST_F(HttpServerTest, aGateIsAskedOnceForEachConnection) {
    std::atomic<int> asked{0};
    std::atomic<int> handled{0};
    server_ = std::make_unique<HttpServer>(
        ListenAddress("127.0.0.1", 0),
        [&](HttpRequest&& request) {
            ++handled;
            return echo(std::move(request));
        },
        HttpLimits{},
        [&](int /*socket*/) {
            return ++asked == 1 ? std::nullopt
                                : std::optional<HttpResponse>({403, {{"X-Why", "no"}}, {}});
        });
    RawConnection first(port());
    for (int i = 0; i < 2; ++i) {
        first.send(small);
        EXPECT_EQ(statusOf(first.readResponse()), 200);
    }
    EXPECT_EQ(asked, 1);
    const std::string refused = answer(small + small);
    EXPECT_EQ(statusOf(refused), 403);
    EXPECT_EQ(fieldOf(refused, "X-Why"), "no");
    EXPECT_EQ(fieldOf(refused, "Connection"), "close");
    EXPECT_EQ(refused.find("HTTP/1.1 ", 1), std::string::npos) << "one answer and no more";
    EXPECT_EQ(handled, 2);
}

TEST_F(HttpServerTest, aGateThatThrowsLetsNobodyIn) {
    server_ = std::make_unique<HttpServer>(
        ListenAddress("127.0.0.1", 0), echo, HttpLimits{},
        [](int /*socket*/) -> std::optional<HttpResponse> { throw std::runtime_error("no"); });
    EXPECT_EQ(statusFor(small), 500);
}

TEST_F(HttpServerTest, otherTransferCodingsEndTheConnection) {
    const std::string chunks = "\r\n3\r\nabc\r\n0\r\n\r\n";
    const auto with = [&](const std::string& fields) {
        return answer("POST /x HTTP/1.1\r\n" + fields + "\r\n" + chunks.substr(2) + small);
    };
    EXPECT_EQ(statusOf(with("Transfer-Encoding: Chunked\r\n")), 200);
    for (const char* const fields :
         {"Transfer-Encoding: gzip\r\n", "Transfer-Encoding: gzip, chunked\r\n",
          "Transfer-Encoding: chunked, gzip\r\n", "Transfer-Encoding: identity\r\n",
          "Transfer-Encoding: xchunked\r\n", "Transfer-Encoding:\r\n",
          "Transfer-Encoding: chunked\r\nTransfer-Encoding: chunked\r\n",
          "Transfer-Encoding: gzip\r\nTransfer-Encoding: chunked\r\n"}) {
        const std::string answered = with(fields);
        EXPECT_TRUE(statusOf(answered) == 501 || statusOf(answered) == 400) << fields << answered;
        EXPECT_EQ(fieldOf(answered, "Connection"), "close") << fields;
        EXPECT_EQ(answered.find("HTTP/1.1 ", 1), std::string::npos) << "nothing more is served";
    }
    EXPECT_EQ(statusOf(with("Transfer-Encoding: gzip\r\n")), 501);
    EXPECT_EQ(statusOf(with("Transfer-Encoding: gzip, chunked\r\n")), 501);
    EXPECT_EQ(statusOf(with("Transfer-Encoding: identity\r\n")), 501);
}

TEST_F(HttpServerTest, aRequestThatDripsInIsTimedOut) {
    start(shortTimes());
    RawConnection connection(port());
    connection.send("POST / HTTP/1.1\r\n");
    // Each byte comes well within any patience for a single one.
    std::thread dripping([&] {
        while (connection.send("X")) {
            std::this_thread::sleep_for(milliseconds(10));
        }
    });
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(statusOf(connection.readAll()), 408);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(9));
    dripping.join();
}

TEST_F(HttpServerTest, aBodyThatDoesNotComeIsTimedOut) {
    start(shortTimes());
    RawConnection connection(port());
    connection.send("POST / HTTP/1.1\r\nContent-Length: 3\r\n\r\nab");
    EXPECT_EQ(statusOf(connection.readAll()), 408);
}

TEST_F(HttpServerTest, anIdleConnectionIsClosedWithoutAWord) {
    start(shortTimes());
    RawConnection fresh(port());
    EXPECT_EQ(fresh.readAll(), "");
    RawConnection used(port());
    used.send(small);
    used.readResponse();
    EXPECT_EQ(used.readAll(), "");
}

TEST_F(HttpServerTest, anAnswerThatIsNotTakenIsGivenUp) {
    HttpLimits limits = shortTimes();
    limits.responseTime = milliseconds(200);
    limits.connections = 1;
    start(limits, [](HttpRequest&&) {
        return HttpResponse{200, {}, std::string(32UL * 1024 * 1024, 'x')};
    });
    RawConnection greedy(port());
    greedy.send(small);
    int status = 503;
    while (status == 503) {
        RawConnection next(port());
        next.send("HELLO\r\n\r\n");
        status = statusOf(next.readAll());
    }
    EXPECT_EQ(status, 400) << "the place is free again";
}

TEST_F(HttpServerTest, whoDoesNotTakeTheAnswerGivesWay) {
    HttpLimits limits = shortTimes();
    limits.responseTime = std::chrono::hours(1);
    limits.connections = 1;
    constexpr std::size_t bodyBytes = 32UL * 1024 * 1024;
    auto held = std::make_shared<int>(0);
    const std::weak_ptr<int> answered = held;
    std::promise<void> asked;
    start(limits, [&](HttpRequest&& request) -> HttpResponse {
        if (request.target != "/x") {
            return {};
        }
        asked.set_value();
        return {200, {}, std::string(bodyBytes, 'x'), std::move(held)};
    });
    RawConnection greedy(port());
    // What it sends meanwhile does not keep the place.
    greedy.send(small + small);
    asked.get_future().wait();
    EXPECT_FALSE(answered.expired()) << "held while it is not sent";
    EXPECT_EQ(statusOfNextClient(), 200);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!answered.expired() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(milliseconds(1));
    }
    EXPECT_TRUE(answered.expired());
    const std::string taken = greedy.readAll();
    EXPECT_EQ(statusOf(taken), 200);
    EXPECT_LT(taken.size(), bodyBytes);
    EXPECT_EQ(taken.find("HTTP/1.1 ", 1), std::string::npos) << "no 503 inside the answer";
}

TEST_F(HttpServerTest, whoTakesTheAnswerKeepsThePlace) {
    HttpLimits limits;
    limits.connections = 1;
    constexpr std::size_t bodyBytes = 32UL * 1024 * 1024;
    start(limits, [](HttpRequest&&) { return HttpResponse{200, {}, std::string(bodyBytes, 'x')}; });
    RawConnection taking(port());
    taking.send(small);
    std::atomic<bool> done{false};
    std::thread others([&] {
        while (!done) {
            RawConnection next(port());
            std::this_thread::sleep_for(milliseconds(1));
        }
    });
    EXPECT_EQ(bodyOf(taking.readResponse()).size(), bodyBytes);
    done = true;
    others.join();
}

TEST_F(HttpServerTest, aSlowAnswerHoldsUpNobodyElse) {
    std::mutex mutex;
    std::condition_variable changed;
    bool waiting = false;
    bool released = false;
    start({}, [&](HttpRequest&& request) {
        if (request.target == "/slow") {
            std::unique_lock lock(mutex);
            waiting = true;
            changed.notify_all();
            changed.wait(lock, [&] { return released; });
        }
        return echo(std::move(request));
    });
    RawConnection slow(port());
    slow.send("POST /slow HTTP/1.1\r\nContent-Length: 0\r\n\r\n");
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return waiting; });
    }
    EXPECT_EQ(statusFor(small), 200);
    {
        const std::lock_guard lock(mutex);
        released = true;
    }
    changed.notify_all();
    EXPECT_EQ(bodyOf(slow.readResponse()), "POST /slow []");
}

TEST_F(HttpServerTest, aHandlerThatThrowsIsAnError) {
    start({}, [](HttpRequest&&) -> HttpResponse { throw std::runtime_error("x"); });
    RawConnection connection(port());
    connection.send(small);
    EXPECT_EQ(statusOf(connection.readResponse()), 500);
    connection.send(small);
    EXPECT_EQ(statusOf(connection.readResponse()), 500) << "the connection lives on";
}

TEST_F(HttpServerTest, clientsThatGoAwayLeaveNothingBehind) {
    HttpLimits limits;
    limits.connections = 4;
    start(limits);
    for (int i = 0; i < 100; ++i) {
        RawConnection connection(port());
        connection.send(small.substr(0, static_cast<std::size_t>(i) % small.size()));
    }
    int status = 503;
    while (status == 503) {
        RawConnection connection(port());
        connection.send(small);
        status = statusOf(connection.readResponse());
    }
    EXPECT_EQ(status, 200);
}

TEST_F(HttpServerTest, stopEndsIdleConnections) {
    RawConnection connection(port());
    connection.send(small);
    connection.readResponse();
    EXPECT_TRUE(server_->stop(milliseconds(5000)));
    EXPECT_EQ(connection.readAll(), "");
    EXPECT_THROW(RawConnection{port()}, std::runtime_error);
    EXPECT_TRUE(server_->stop(milliseconds(0))) << "once more";
}

TEST_F(HttpServerTest, stopLetsRequestsBeAnsweredIfItIsGivenTheTime) {
    std::mutex mutex;
    std::condition_variable changed;
    bool waiting = false;
    bool released = false;
    start({}, [&](HttpRequest&& request) {
        std::unique_lock lock(mutex);
        waiting = true;
        changed.notify_all();
        changed.wait(lock, [&] { return released; });
        return echo(std::move(request));
    });
    RawConnection connection(port());
    connection.send(small);
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return waiting; });
    }
    EXPECT_FALSE(server_->stop(milliseconds(20))) << "a request is inside";
    {
        const std::lock_guard lock(mutex);
        released = true;
    }
    changed.notify_all();
    EXPECT_TRUE(server_->stop(milliseconds(10'000)));
    EXPECT_EQ(bodyOf(connection.readAll()), "POST /x [abc]");
}
