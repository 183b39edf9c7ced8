// SPDX-License-Identifier: MIT
// The memory that answers take, from their first byte until they have been sent.
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <utility>

namespace cimhost {

/// What answers may take. At a limit an answer is given, beyond it is refused.
struct AnswerLimits {
    std::size_t one = 64UL * 1024 * 1024;        ///< bytes of one answer
    std::size_t together = 128UL * 1024 * 1024;  ///< of all answers, without what each has free
    std::size_t freeOfEach = 1UL * 1024 * 1024;  ///< so that small answers are always given
};

/// The bytes of all answers of a server together, beyond those that each has free. Any number of
/// threads may use it at once.
using AnswerTotal = std::atomic<std::size_t>;

/// The bytes of one answer, part of a total as long as it lives. One thread at a time.
class AnswerBytes {
public:
    AnswerBytes(const AnswerLimits& limits, std::shared_ptr<AnswerTotal> total)
        : limits_(limits), total_(std::move(total)) {}

    ~AnswerBytes() { *total_ -= counted_; }

    AnswerBytes(const AnswerBytes&) = delete;
    AnswerBytes& operator=(const AnswerBytes&) = delete;

    /// Says how many they are now. Where they have become too many,
    /// CIM_ERR_SERVER_LIMITS_EXCEEDED with the limit is thrown, and nothing changes.
    void set(std::size_t bytes);

private:
    AnswerLimits limits_;
    std::shared_ptr<AnswerTotal> total_;
    std::size_t counted_ = 0;
};

}  // namespace cimhost
