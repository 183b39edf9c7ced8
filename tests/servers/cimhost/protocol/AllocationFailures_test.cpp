// SPDX-License-Identifier: MIT
// The codec and the service when memory runs out: at each single allocation of a request.
#include <new>

#include <gtest/gtest.h>

#include "servers/cimhost/protocol/CimService.h"
#include "tests/servers/cimhost/protocol/RecordedExchange.h"
#include "tests/servers/cimhost/protocol/ReplayOperations.h"
#include "tests/support/FailingAllocator.h"
#include "tests/support/RawConnection.h"
#include "wire/cimxml/CimResponse.h"
#include "wire/cimxml/XmlDocument.h"

using namespace cimhost;
using failing_allocator::Mode;

namespace {

/// The bytes of a request as the HTTP server hands them on.
wire::HttpRequest parsed(const std::string& bytes) {
    wire::HttpRequest request;
    const std::string head = bytes.substr(0, bytes.find("\r\n\r\n"));
    request.method = head.substr(0, head.find(' '));
    request.target = "/cimom";
    request.http10 = head.find(" HTTP/1.0\r\n") != std::string::npos;
    for (std::size_t line = head.find("\r\n"); line != std::string::npos;) {
        const std::size_t next = head.find("\r\n", line + 2);
        const std::string field = head.substr(line + 2, next - line - 2);
        request.fields.push_back(
            {field.substr(0, field.find(':')), field.substr(field.find(':') + 2)});
        line = next;
    }
    request.body = bodyOf(bytes);
    return request;
}

/// The exchanges with an answer of 200 whose request is of a length that it names.
std::vector<RecordedExchange> exchanges() {
    std::vector<RecordedExchange> answered;
    for (RecordedExchange& exchange : recordedExchanges(ZORVA_EXCHANGES)) {
        if (statusOf(exchange.response) == 200 &&
            !fieldOf(exchange.request, "Content-Length").empty()) {
            answered.push_back(std::move(exchange));
        }
    }
    return answered;
}

/// Does `work` with one allocation after the other failing, and `check` after each; `check` gets whether
/// std::bad_alloc was thrown.
template <class Work, class Check>
std::size_t forEachFailure(Mode mode, Work work, Check check) {
    for (std::size_t failing = 1;; ++failing) {
        SCOPED_TRACE((mode == Mode::once ? "only " : "from ") + std::to_string(failing));
        const long before = failing_allocator::piecesInUse();
        bool threw = false;
        try {
            failing_allocator::run(failing, mode, work);
        } catch (const std::bad_alloc&) {
            threw = true;
        }
        const bool hasFailed = failing_allocator::hasFailed();
        EXPECT_EQ(failing_allocator::piecesInUse(), before);
        check(threw);
        if (testing::Test::HasFailure() || !hasFailed) {
            return failing - 1;
        }
    }
}

}  // namespace

// An answer is the whole one, an error of the server, or none (which the HTTP server answers by 500);
// never one that blames the client.
TEST(AllocationFailures, RequestIsAnsweredOrFailsAndTheNextIsAnswered) {
    const auto all = exchanges();
    ASSERT_GE(all.size(), 10U);
    std::size_t failures = 0;
    for (const RecordedExchange& exchange : all) {
        SCOPED_TRACE(exchange.name);
        std::string trailer;
        ReplayOperations operations(wholeBody(exchange.response, trailer));
        const CimService service(operations);
        const std::string whole = service.answer(parsed(exchange.request)).body;
        for (const Mode mode : {Mode::once, Mode::onwards}) {
            std::string unexpected;
            failures += forEachFailure(
                mode,
                [&] {
                    const wire::HttpResponse answer = service.answer(parsed(exchange.request));
                    const bool isError = answer.body.find("<ERROR CODE=\"1\"") != std::string::npos;
                    if (answer.status != 200 || (answer.body != whole && !isError)) {
                        unexpected = std::to_string(answer.status) + " " + answer.body;
                    }
                },
                [&](bool /*threw*/) {
                    EXPECT_EQ(unexpected, "");
                    EXPECT_EQ(service.answer(parsed(exchange.request)).body, whole);
                });
        }
    }
    EXPECT_GT(failures, 1000U);
}

TEST(AllocationFailures, ResponseIsReadOrNotAndTheNextIsRead) {
    for (const RecordedExchange& exchange : exchanges()) {
        SCOPED_TRACE(exchange.name);
        std::string trailer;
        const std::string body = wholeBody(exchange.response, trailer);
        const auto read = [&] {
            const wire::XmlDocument document(body);
            try {
                wire::readResponse(document);
            } catch (const Pegasus::CIMException&) {
                // The response of an operation that failed.
            }
        };
        const std::size_t failures = forEachFailure(Mode::once, read, [&](bool threw) {
            EXPECT_EQ(threw, failing_allocator::hasFailed());
            EXPECT_NO_THROW(read());
        });
        EXPECT_GT(failures, 0U);
    }
}
