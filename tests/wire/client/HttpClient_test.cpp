// SPDX-License-Identifier: MIT
#include "wire/client/HttpClient.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <future>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "base/FileDescriptor.h"
#include "wire/http/HttpServer.h"

using namespace wire;
using std::chrono::milliseconds;

namespace {

/// One connection of a server that does as it likes.
class Talk {
public:
    explicit Talk(int socket) : socket_(socket) {}

    /// Reads a request to the end of its body, which is always the same; false if there is none.
    bool hear() {
        std::string request;
        while (request.find(body) == std::string::npos) {
            std::array<char, 4096> buffer{};
            const ssize_t count = recv(socket_, buffer.data(), buffer.size(), 0);
            if (count <= 0) {
                return false;
            }
            request.append(buffer.data(), static_cast<std::size_t>(count));
        }
        heard_ = request;
        return true;
    }

    /// Returns false once nobody listens any more.
    bool say(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t count = send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
            if (count <= 0) {
                return false;
            }
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }

    void sayForEver(const std::string& bytes) const {
        std::string plenty;
        while (plenty.size() < 64UL * 1024) {
            plenty += bytes;
        }
        while (say(plenty)) {
        }
    }

    const std::string& heard() const { return heard_; }

    static constexpr const char* body = "<body/>";

private:
    int socket_;
    std::string heard_;
};

/// Has `talk` answer each connection, one after another, until the test is over.
class HostileServer {
public:
    explicit HostileServer(std::function<void(Talk&)> talk)
        : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)), talk_(std::move(talk)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        bind(socket_.get(), reinterpret_cast<sockaddr*>(&address), size);
        listen(socket_.get(), 8);
        getsockname(socket_.get(), reinterpret_cast<sockaddr*>(&address), &size);
        port_ = ntohs(address.sin_port);
        thread_ = std::thread([this] { serve(); });
    }
    ~HostileServer() {
        shutdown(socket_.get(), SHUT_RDWR);
        thread_.join();
    }
    HostileServer(const HostileServer&) = delete;
    HostileServer& operator=(const HostileServer&) = delete;

    std::uint16_t port() const { return port_; }

private:
    void serve() {
        while (true) {
            const base::FileDescriptor client(accept(socket_.get(), nullptr, nullptr));
            if (!client.isOpen()) {
                return;
            }
            Talk talk(client.get());
            talk_(talk);
        }
    }

    base::FileDescriptor socket_;
    std::function<void(Talk&)> talk_;
    std::uint16_t port_ = 0;
    std::thread thread_;
};

ServerUrl urlOf(std::uint16_t port, const std::string& host = "127.0.0.1") {
    ServerUrl url;
    url.host = host;
    url.port = port;
    return url;
}

HttpResponse post(HttpClient& client, const HttpFields& fields = {}) {
    return client.post("/", fields, Talk::body);
}

std::string whatIsWrong(const ServerUrl& url, const HttpClientOptions& options = {}) {
    try {
        HttpClient client(url, options);
        post(client);
        return "nothing";
    } catch (const HttpError& error) {
        return error.what();
    }
}

std::string whatIsWrongWith(const std::function<void(Talk&)>& talk,
                            const HttpClientOptions& options = {}) {
    const HostileServer server([&](Talk& it) { return it.hear() ? talk(it) : void(); });
    return whatIsWrong(urlOf(server.port()), options);
}

std::string whatIsWrongWith(const std::string& answer) {
    return whatIsWrongWith([&](Talk& talk) { talk.say(answer); });
}

HttpResponse ask(const std::string& answer) {
    const HostileServer server([&](Talk& talk) { return talk.hear() && talk.say(answer); });
    HttpClient client(urlOf(server.port()));
    return post(client);
}

HttpResponse describe(HttpRequest&& request) {
    return {200,
            {{"Host-Seen", findField(request.fields, "Host").value_or("")},
             {"Expect-Seen", findField(request.fields, "Expect").value_or("none")},
             {"Authorization-Seen", findField(request.fields, "Authorization").value_or("none")}},
            request.body};
}

/// An environment variable with another value while a test runs.
class Environment {
public:
    Environment(const char* name, const std::string& value) : name_(name) {
        if (const char* const before = getenv(name)) {
            before_ = before;
        }
        setenv(name, value.c_str(), 1);
    }
    ~Environment() {
        if (before_) {
            setenv(name_, before_->c_str(), 1);
        } else {
            unsetenv(name_);
        }
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    const char* name_;
    std::optional<std::string> before_;
};

constexpr char noCompleteAnswer[] = "the server closed the connection without a complete answer";
constexpr char headerTooLarge[] = "the header of the answer is too large";

}  // namespace

TEST(HttpClient, exchangesOverOneConnection) {
    HttpLimits limits;
    limits.connections = 1;
    const HttpServer server(ListenAddress("127.0.0.1", 0), describe, limits);
    HttpClient client(urlOf(server.port()));
    for (int i = 0; i < 3; ++i) {
        const HttpResponse response = post(client);
        EXPECT_EQ(response.status, 200U);
        EXPECT_EQ(response.body, Talk::body);
        EXPECT_EQ(findField(response.fields, "Host-Seen"),
                  "127.0.0.1:" + std::to_string(server.port()));
    }
}

TEST(HttpClient, sendsWhatItIsGivenAndNoMore) {
    std::string heard;
    const HostileServer server([&](Talk& talk) {
        talk.hear();
        heard = talk.heard();
        talk.say("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
    });
    HttpClient client(urlOf(server.port()));
    client.post("/cimom", {{"Content-Type", "application/xml"}, {"X", "y"}}, Talk::body);
    EXPECT_EQ(heard, "POST /cimom HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(server.port()) +
                         "\r\nContent-Type: application/xml\r\nX: y\r\nContent-Length: 7\r\n\r\n" +
                         Talk::body);
}

TEST(HttpClient, reachesIpv6) {
    const HttpServer server(ListenAddress("::1", 0), describe);
    HttpClient client(urlOf(server.port(), "::1"));
    EXPECT_EQ(findField(post(client).fields, "Host-Seen"),
              "[::1]:" + std::to_string(server.port()));
}

TEST(HttpClient, sendsLargeBodies) {
    HttpLimits limits;
    limits.bodyBytes = 3'000'000;
    const HttpServer server(ListenAddress("127.0.0.1", 0), describe, limits);
    HttpClient client(urlOf(server.port()));
    const std::string large(limits.bodyBytes, 'x');
    const HttpResponse response = client.post("/", {}, large);
    EXPECT_TRUE(response.body == large);
    EXPECT_EQ(findField(response.fields, "Expect-Seen"), "none");
}

TEST(HttpClient, connectsAgainWhereTheServerHasClosed) {
    HttpLimits limits;
    limits.idleTime = milliseconds(50);
    limits.connections = 1;
    const HttpServer server(ListenAddress("127.0.0.1", 0), describe, limits);
    HttpClient client(urlOf(server.port()));
    EXPECT_EQ(post(client).body, Talk::body);
    HttpClient other(urlOf(server.port()));
    while (post(other).status == 503) {
        // Once the place is free, the first client's connection is closed.
    }
    HttpResponse again;
    do {
        again = post(client);
    } while (again.status == 503);
    EXPECT_EQ(again.body, Talk::body);
}

TEST(HttpClient, connectsAgainAfterConnectionClose) {
    const HttpServer server(ListenAddress("127.0.0.1", 0), describe);
    HttpClient client(urlOf(server.port(), "localhost"));
    EXPECT_EQ(post(client, {{"Connection", "close"}}).body, Talk::body);
    EXPECT_EQ(post(client).body, Talk::body);
}

TEST(HttpClient, sendsNothingTwice) {
    std::atomic<int> requests{0};
    const HostileServer server([&](Talk& talk) {
        while (talk.hear()) {
            if (++requests != 1) {
                return;
            }
            talk.say("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
        }
    });
    HttpClient client(urlOf(server.port()));
    post(client);
    try {
        post(client);
        ADD_FAILURE();
    } catch (const HttpError& error) {
        EXPECT_STREQ(error.what(), noCompleteAnswer);
    }
    EXPECT_EQ(requests, 2);
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

TEST(HttpClient, skipsInterimAnswers) {
    const HttpResponse response =
        ask("HTTP/1.1 100 Continue\r\nOf: interim\r\n\r\n"
            "HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\nx");
    EXPECT_EQ(response.status, 200U);
    EXPECT_EQ(response.body, "x");
    EXPECT_EQ(findField(response.fields, "Of"), std::nullopt);
}

TEST(HttpClient, followsNoRedirect) {
    std::atomic<int> requests{0};
    const HostileServer server([&](Talk& talk) {
        while (talk.hear()) {
            ++requests;
            talk.say("HTTP/1.1 302 Found\r\nLocation: /there\r\nContent-Length: 0\r\n\r\n");
        }
    });
    HttpClient client(urlOf(server.port()));
    const HttpResponse response = post(client);
    EXPECT_EQ(response.status, 302U);
    EXPECT_EQ(findField(response.fields, "Location"), "/there");
    EXPECT_EQ(requests, 1);
}

TEST(HttpClient, saysWhatWentWrong) {
    EXPECT_EQ(whatIsWrongWith(""), noCompleteAnswer);
    EXPECT_EQ(whatIsWrongWith("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nab"), noCompleteAnswer);
    EXPECT_EQ(whatIsWrongWith("SSH-2.0-x\r\n\r\n").substr(0, 23), "the answer is not HTTP ");
}

TEST(HttpClient, readsWhatComesByteByByte) {
    const HostileServer server([&](Talk& talk) {
        talk.hear();
        for (const char byte : std::string(
                 "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\nTransfer-Encoding: chunked"
                 "\r\n\r\n3\r\nabc\r\n0\r\nCIMStatusCode: 5\r\n\r\n")) {
            talk.say({&byte, 1});
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
    });
    HttpClient client(urlOf(server.port()));
    const HttpResponse response = post(client);
    EXPECT_EQ(response.body, "abc");
    EXPECT_EQ(findField(response.fields, "CIMStatusCode"), "5");
}

TEST(HttpClient, takesNoPartOfAnAnswerForTheWhole) {
    // Of chunks libcurl does not need the line feed after the last carriage return.
    const std::vector<std::pair<std::string, std::size_t>> answersAndSpareBytes = {
        {"HTTP/1.1 200 OK\r\nContent-Type: x\r\nContent-Length: 3\r\n\r\nabc", 0},
        {"HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"
         "3\r\nabc\r\n2\r\nde\r\n0\r\nCIMStatusCode: 5\r\n\r\n",
         1}};
    for (const auto& [answer, spareBytes] : answersAndSpareBytes) {
        std::atomic<std::size_t> length{0};
        const HostileServer server([&, &whole = answer](Talk& talk) {
            return talk.hear() && talk.say(whole.substr(0, length));
        });
        for (; length < answer.size() - spareBytes; ++length) {
            EXPECT_NE(whatIsWrong(urlOf(server.port())), "nothing") << answer.substr(0, length);
        }
        EXPECT_EQ(whatIsWrong(urlOf(server.port())), "nothing");
    }
}

TEST(HttpClient, refusesAnEndlessHeader) {
    EXPECT_EQ(whatIsWrongWith([](Talk& talk) {
                  talk.say("HTTP/1.1 200 OK\r\n");
                  talk.sayForEver("A: b\r\n");
              }),
              headerTooLarge);
    EXPECT_NE(whatIsWrongWith([](Talk& talk) {
                  talk.say("HTTP/1.1 200 OK\r\nA: ");
                  talk.sayForEver("b");
              }),
              "nothing");
    EXPECT_NE(whatIsWrongWith([](Talk& talk) { talk.sayForEver("b"); }), "nothing");
}

TEST(HttpClient, refusesEndlessInterimAnswers) {
    EXPECT_EQ(whatIsWrongWith([](Talk& talk) { talk.sayForEver("HTTP/1.1 100 Continue\r\n\r\n"); }),
              headerTooLarge);
}

TEST(HttpClient, refusesAnEndlessTrailer) {
    EXPECT_EQ(whatIsWrongWith([](Talk& talk) {
                  talk.say("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n");
                  talk.sayForEver("A: b\r\n");
              }),
              headerTooLarge);
}

TEST(HttpClient, headersMayBeAsLargeAsTheirLimit) {
    const std::string answer = "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n";
    for (const int more : {0, -1}) {
        HttpClientOptions options;
        options.headerBytes = answer.size() + static_cast<std::size_t>(more);
        EXPECT_EQ(whatIsWrongWith([&](Talk& talk) { talk.say(answer); }, options),
                  more == 0 ? "nothing" : headerTooLarge);
    }
}

TEST(HttpClient, refusesAnAnswerBeyondItsLimit) {
    HttpClientOptions options;
    options.bodyBytes = 10;
    const auto wrongWith = [&](const std::string& answer) {
        return whatIsWrongWith([&](Talk& talk) { talk.say(answer); }, options);
    };
    const std::string tooLarge = "the answer is larger than 10 bytes";
    EXPECT_EQ(wrongWith("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n0123456789"), "nothing");
    EXPECT_EQ(wrongWith("HTTP/1.1 200 OK\r\nContent-Length: 11\r\n\r\n01234567890"), tooLarge);
    const std::string chunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
    EXPECT_EQ(wrongWith(chunked + "5\r\n01234\r\n6\r\n567890\r\n0\r\n\r\n"), tooLarge);
}

TEST(HttpClient, refusesAnEndlessBody) {
    const std::string tooLarge = "the answer is larger than 67108864 bytes";
    EXPECT_EQ(whatIsWrongWith([](Talk& talk) {
                  talk.say("HTTP/1.0 200 OK\r\n\r\n");
                  talk.sayForEver("x");
              }),
              tooLarge);
    EXPECT_EQ(whatIsWrongWith([](Talk& talk) {
                  talk.say("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
                  talk.sayForEver("10\r\n0123456789abcdef\r\n");
              }),
              tooLarge);
}

TEST(HttpClient, givesUpWaiting) {
    HttpClientOptions options;
    options.callTime = milliseconds(100);
    const std::string tooLate = "the server did not answer in time";
    EXPECT_EQ(whatIsWrongWith([](Talk& talk) { talk.hear(); }, options), tooLate);
    // However little is said: the time is that of the whole call.
    EXPECT_EQ(whatIsWrongWith(
                  [](Talk& talk) {
                      talk.say("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n");
                      while (talk.say("x")) {
                          std::this_thread::sleep_for(milliseconds(5));
                      }
                  },
                  options),
              tooLate);
    // Nor does a chunk whose size never ends hold anybody up, which libcurl neither counts nor shows.
    EXPECT_EQ(whatIsWrongWith(
                  [](Talk& talk) {
                      talk.say("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n1;");
                      talk.sayForEver("x");
                  },
                  options),
              tooLate);
}

TEST(HttpClient, givesUpConnecting) {
    const HostileServer silent([](Talk& talk) {
        while (talk.hear()) {
        }
    });
    HttpClientOptions options;
    options.connectTime = milliseconds(100);
    ServerUrl url = urlOf(silent.port());
    url.isEncrypted = true;
    EXPECT_EQ(whatIsWrong(url, options).substr(0, 24), "cannot connect in time (");
}

TEST(HttpClient, saysThatTheServerKnowsNoEncryption) {
    const HttpServer server(ListenAddress("127.0.0.1", 0), describe);
    ServerUrl url = urlOf(server.port());
    url.isEncrypted = true;
    EXPECT_EQ(whatIsWrong(url).substr(0, 36), "no encrypted connection can be made ");
}

TEST(HttpClient, saysThatNobodyListens) {
    std::uint16_t port = 0;
    {
        const HttpServer server(ListenAddress("127.0.0.1", 0), describe);
        port = server.port();
    }
    EXPECT_EQ(whatIsWrong(urlOf(port)), "cannot connect (Connection refused)");
}

TEST(HttpClient, saysThatTheHostIsNotKnown) {
    EXPECT_EQ(whatIsWrong(urlOf(5988, "no host of this name")).substr(0, 21),
              "the host is not known");
    EXPECT_EQ(whatIsWrong(urlOf(5988, "nobody.invalid")),
              "the host is not known (Could not resolve host: nobody.invalid)");
}

TEST(HttpClient, knowsNoProxyOfTheEnvironment) {
    const HttpServer server(ListenAddress("127.0.0.1", 0), describe);
    const Environment http("http_proxy", "http://127.0.0.1:1");
    const Environment all("ALL_PROXY", "http://127.0.0.1:1");
    HttpClient client(urlOf(server.port()));
    EXPECT_EQ(post(client).status, 200U);
}

TEST(HttpClient, asksThroughAProxyThatIsNamed) {
    std::string heard;
    const HostileServer proxy([&](Talk& talk) {
        talk.hear();
        heard = talk.heard();
        talk.say("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
    });
    const Environment none("no_proxy", "*");
    HttpClientOptions options;
    options.proxy = "http://127.0.0.1:" + std::to_string(proxy.port());
    std::vector<std::string> told;
    options.passwordInClear = [&](const std::string& address) { told.push_back(address); };
    ServerUrl url = urlOf(5988, "nobody.invalid");
    url.userAndPassword = "me:secret";
    HttpClient client(url, options);
    post(client);
    post(client);
    EXPECT_EQ(heard.substr(0, 42), "POST http://nobody.invalid:5988/ HTTP/1.1\r");
    EXPECT_EQ(told, std::vector<std::string>{"127.0.0.1"}) << "what comes after the proxy is open";
}

TEST(HttpClient, aPasswordForThisMachineIsNotInClear) {
    const HttpServer server(ListenAddress("127.0.0.1", 0), describe);
    HttpClientOptions options;
    options.passwordInClear = [](const std::string& address) { ADD_FAILURE() << address; };
    ServerUrl url = urlOf(server.port(), "localhost");
    url.userAndPassword = "me:se:cret";
    HttpClient client(url, options);
    EXPECT_EQ(findField(post(client).fields, "Authorization-Seen"), "Basic bWU6c2U6Y3JldA==");
}

TEST(HttpClient, takesCredentialsFromNetrcIfItMay) {
    const HttpServer server(ListenAddress("127.0.0.1", 0), describe);
    const std::string home = testing::TempDir() + "netrc-" + std::to_string(server.port());
    ASSERT_EQ(std::system(("mkdir -p " + home).c_str()), 0);
    std::ofstream(home + "/.netrc") << "machine 127.0.0.1 login me password secret\n";
    const Environment environment("HOME", home);

    const auto sent = [&](const std::string& given, bool readsNetrc) {
        HttpClientOptions options;
        options.readsNetrc = readsNetrc;
        ServerUrl url = urlOf(server.port());
        url.userAndPassword = given;
        HttpClient client(url, options);
        return findField(post(client).fields, "Authorization-Seen");
    };
    EXPECT_EQ(sent("", true), "Basic bWU6c2VjcmV0");
    EXPECT_EQ(sent("", false), "none");
    EXPECT_EQ(sent("a:b", true), "Basic YTpi");
    EXPECT_EQ(std::system(("rm -r " + home).c_str()), 0);
}
