// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/AnswerBytes.h"

#include <string>

#include <Pegasus/Common/Exception.h>

namespace cimhost {

namespace {

[[noreturn]] void refuse(const char* what, std::size_t limit) {
    constexpr std::size_t mebibyte = 1024UL * 1024;
    const std::string size = limit % mebibyte == 0 ? std::to_string(limit / mebibyte) + " MiB"
                                                   : std::to_string(limit) + " bytes";
    const std::string text = what + size;
    throw Pegasus::CIMException(Pegasus::CIM_ERR_SERVER_LIMITS_EXCEEDED,
                                Pegasus::String(text.c_str()));
}

}  // namespace

void AnswerBytes::set(std::size_t bytes) {
    if (bytes > limits_.one) {
        refuse("the answer would be larger than ", limits_.one);
    }
    const std::size_t counted = bytes > limits_.freeOfEach ? bytes - limits_.freeOfEach : 0;
    if (counted > counted_) {
        const std::size_t more = counted - counted_;
        if (total_->fetch_add(more) + more > limits_.together) {
            *total_ -= more;
            refuse("the large answers that are on their way would together be larger than ",
                   limits_.together);
        }
    } else {
        *total_ -= counted_ - counted;
    }
    counted_ = counted;
}

}  // namespace cimhost
