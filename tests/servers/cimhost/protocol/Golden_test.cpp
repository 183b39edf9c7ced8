// SPDX-License-Identifier: MIT
// Recorded exchanges against the whole road from socket to socket: the recorded request goes in, the
// recorded results come out of the operations, and what is answered must be what was recorded.
#include <map>
#include <memory>

#include <gtest/gtest.h>

#include "servers/cimhost/protocol/CimService.h"
#include "tests/servers/cimhost/protocol/RecordedExchange.h"
#include "tests/servers/cimhost/protocol/ReplayOperations.h"
#include "tests/support/RawConnection.h"
#include "wire/http/HttpServer.h"
#include "wire/http/PercentEncoding.h"

using namespace cimhost;

namespace {

std::unique_ptr<ReplayOperations> replay(const std::string& response) {
    if (statusOf(response) != 200) {
        return std::make_unique<ReplayOperations>(1, "CIM_ERR_FAILED: no operation was expected");
    }
    std::string trailer;
    const std::string body = wholeBody(response, trailer);
    const std::string code = fieldOf("\r\n" + trailer, "CIMStatusCode");
    if (!code.empty()) {
        return std::make_unique<ReplayOperations>(
            std::stoul(code),
            wire::percentDecoded(fieldOf("\r\n" + trailer, "CIMStatusCodeDescription")));
    }
    return std::make_unique<ReplayOperations>(body);
}

/// What this server answers to the request where operations answer what the response holds.
std::string answerTo(const RecordedExchange& exchange) {
    const auto operations = replay(exchange.response);
    const CimService service(*operations);
    wire::HttpServer server(wire::ListenAddress("127.0.0.1", 0), [&](wire::HttpRequest&& request) {
        return service.answer(std::move(request));
    });
    RawConnection connection(server.port());
    connection.send(exchange.request);
    connection.finishSending();
    std::string answers = connection.readAll();
    const std::string interim = "HTTP/1.1 100 Continue\r\n\r\n";
    if (answers.compare(0, interim.size(), interim) == 0) {
        answers.erase(0, interim.size());
    }
    // The first of several answers is the one recorded first.
    const std::size_t length = bodyOf(answers).size();
    const std::size_t expected = std::stoul("0" + fieldOf(answers, "Content-Length"));
    return answers.substr(0, answers.size() - length + std::min(length, expected));
}

/// The recorded exchanges that are answered otherwise on purpose, each with the section of
/// docs/wire-differences.md that says why.
const std::map<std::string, std::string> differences = {
    {"126-cimcli-pei", "Operations that are not offered"},
    {"127-cimcli-ns-6", "Operations that are not offered"},
    {"297-raw-open-enumerate", "Operations that are not offered"},
    {"63-wbemcli-sp-2", "Operations that are not offered"},
    {"166-raw-unknown-intrinsic", "Texts"},
    {"167-raw-unsupported-createclass", "Operations that are not offered"},
    {"168-raw-missing-parameter", "Texts"},
    {"169-raw-unknown-parameter", "Texts"},
    {"170-raw-duplicate-parameter", "Texts"},
    {"298-raw-execquery", "Texts"},
    {"133-raw-malformed-xml", "Messages"},
    {"141-raw-multireq", "Messages"},
    {"178-raw-message-id-text", "Messages"},
    {"275-raw-second-xml-after", "Messages"},
    {"179-raw-create-text", "Characters"},
    {"204-raw-get-provider-chars", "Characters"},
    {"205-raw-get-provider-surrogate", "Characters"},
    {"271-wbemcli-ei-provider-chars-cte", "Characters"},
    {"284-raw-create-ref-decimal-8364", "Characters"},
    {"290-raw-create-ref-zero", "Characters"},
    {"94-wbemcli-gi-provider-chars", "Characters"},
    {"154-raw-no-content-length", "HTTP"},
    {"211-raw-method-get", "HTTP"},
    {"212-raw-method-head", "HTTP"},
    {"213-raw-method-options", "HTTP"},
    {"214-raw-method-put", "HTTP"},
    {"215-raw-method-delete", "HTTP"},
    {"216-raw-method-trace", "HTTP"},
    {"217-raw-get-root", "HTTP"},
    {"218-raw-bad-request-line", "HTTP"},
    {"306-raw-method-options-cim", "HTTP"},
    {"307-raw-method-put-cim", "HTTP"},
    {"308-raw-method-get-cim", "HTTP"},
    {"309-raw-method-get-cim-nobody", "HTTP"},
    {"310-raw-method-delete-cim", "HTTP"},
};

bool isAnsweredAsRecorded(const RecordedExchange& exchange) {
    try {
        return comparable(answerTo(exchange)) == comparable(exchange.response);
    } catch (const std::exception&) {
        return false;
    }
}

void compare(const RecordedExchange& exchange) {
    SCOPED_TRACE(exchange.name);
    if (differences.count(exchange.name) != 0) {
        EXPECT_FALSE(isAnsweredAsRecorded(exchange)) << "no longer different";
        return;
    }
    try {
        const ComparableResponse recorded = comparable(exchange.response);
        const ComparableResponse answered = comparable(answerTo(exchange));
        EXPECT_EQ(answered.status, recorded.status);
        EXPECT_EQ(answered.cimError, recorded.cimError);
        EXPECT_EQ(answered.message, recorded.message);
    } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
    }
}

}  // namespace

TEST(Golden, recordedExchangesAreAnsweredAsRecorded) {
    const auto exchanges = recordedExchanges(ZORVA_RECORDED_EXCHANGES);
    if (exchanges.empty()) {
        GTEST_SKIP() << "no recorded exchanges at " << ZORVA_RECORDED_EXCHANGES;
    }
    for (const RecordedExchange& exchange : exchanges) {
        compare(exchange);
    }
}

TEST(Golden, exchangesOfOurOwnAreAnsweredByteForByte) {
    const auto exchanges = recordedExchanges(ZORVA_EXCHANGES);
    ASSERT_GE(exchanges.size(), 18U);
    for (const RecordedExchange& exchange : exchanges) {
        SCOPED_TRACE(exchange.name);
        EXPECT_EQ(answerTo(exchange), exchange.response);
    }
}
