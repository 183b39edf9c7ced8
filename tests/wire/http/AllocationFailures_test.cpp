// SPDX-License-Identifier: MIT
// The server when memory runs out at a single allocation of its threads: one client may be given up, the
// next is served.
#include <chrono>
#include <filesystem>
#include <iterator>
#include <thread>

#include <gtest/gtest.h>

#include "tests/support/FailingAllocator.h"
#include "tests/support/RawConnection.h"
#include "wire/http/HttpServer.h"

using namespace wire;

namespace {

const std::string largeText(10000, 'x');

std::string answerTo(const HttpServer& server, const std::string& request) {
    RawConnection connection(server.port());
    connection.send(request);
    connection.finishSending();
    return connection.readAll();
}

/// Does `request` while one allocation after the other fails in the server's threads, until there is
/// none left to fail. Returns how many failed.
template <class Check>
std::size_t forEachFailure(const HttpServer& server, const std::string& request, Check check) {
    std::size_t failing = 0;
    do {
        ++failing;
        SCOPED_TRACE(failing);
        std::string answer;
        failing_allocator::run(
            failing, failing_allocator::Mode::once, [&] { answer = answerTo(server, request); },
            failing_allocator::Threads::others);
        check(answer);
    } while (failing_allocator::hasFailed() && !testing::Test::HasFailure());
    return failing - 1;
}

std::size_t threadCount() {
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return static_cast<std::size_t>(std::distance(begin(tasks), end(tasks)));
}

/// Waits until there are no more than `threads`. A thread of the server gives back the last of its memory
/// after it has left its place.
void awaitThreads(std::size_t threads) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (threadCount() > threads && std::chrono::steady_clock::now() < end) {
        std::this_thread::yield();
    }
    ASSERT_EQ(threadCount(), threads);
}

}  // namespace

TEST(AllocationFailures, ServerAnswersOrClosesAndServesTheNextClient) {
    const HttpServer server(ListenAddress("127.0.0.1", 0), [](HttpRequest&& request) {
        return HttpResponse{200, {{"X-Text", "text"}}, request.body};
    });
    const std::string request =
        "POST / HTTP/1.1\r\nHost: h\r\nConnection: close\r\nContent-Length: " +
        std::to_string(largeText.size()) + "\r\n\r\n" + largeText;
    const std::size_t failures = forEachFailure(server, request, [&](const std::string& answer) {
        const int status = statusOf(answer);
        EXPECT_TRUE(status == 0 || status == 200 || status == 500 || status == 503) << answer;
        EXPECT_EQ(bodyOf(answer), status == 200 ? largeText : "");
        EXPECT_EQ(statusOf(answerTo(server, request)), 200);
    });
    EXPECT_GT(failures, 5U);
}

TEST(AllocationFailures, RefusalIsSentOrNotAndTheNextIs) {
    const HttpServer server(ListenAddress("127.0.0.1", 0),
                            [](HttpRequest&& /*request*/) { return HttpResponse{}; });
    const std::string request = "GET / HTTP/1.1\r\nno field\r\n\r\n";
    forEachFailure(server, request, [&](const std::string& answer) {
        EXPECT_TRUE(answer.empty() || statusOf(answer) == 400 || statusOf(answer) == 503) << answer;
        EXPECT_EQ(statusOf(answerTo(server, request)), 400);
    });
}

TEST(AllocationFailures, NoPlaceIsLost) {
    HttpLimits limits;
    limits.connections = 1;
    HttpServer server(
        ListenAddress("127.0.0.1", 0), [](HttpRequest&& /*request*/) { return HttpResponse{}; },
        limits);
    const std::string request = "GET / HTTP/1.1\r\nHost: h\r\nConnection: close\r\n\r\n";
    forEachFailure(server, request, [&](const std::string& /*answer*/) {});
    // Waits for every place that was taken.
    EXPECT_TRUE(server.stop(std::chrono::seconds(20)));
}

TEST(AllocationFailures, ServerLeaksNothing) {
    const auto use = [] {
        HttpServer server(ListenAddress("127.0.0.1", 0),
                          [](HttpRequest&& /*request*/) { return HttpResponse{}; });
        const std::string request = "GET / HTTP/1.1\r\nHost: h\r\nConnection: close\r\n\r\n";
        forEachFailure(server, request, [&](const std::string& /*answer*/) {});
        server.stop(std::chrono::seconds(20));
    };
    const std::size_t threads = threadCount();
    use();
    awaitThreads(threads);
    const long before = failing_allocator::piecesInUse();
    use();
    awaitThreads(threads);
    EXPECT_EQ(failing_allocator::piecesInUse(), before);
}
