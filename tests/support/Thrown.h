// SPDX-License-Identifier: MIT
// What a call threw, with its message.
#pragma once

#include <string>
#include <typeinfo>

#include <Pegasus/Common/Exception.h>

#include "tests/support/ObjectModelText.h"

/// The message of the exception of exactly the type Thrown that `call` throws; a text that says what
/// happened instead otherwise.
template <class Thrown, class Call>
std::string thrownBy(Call call) {
    try {
        call();
    } catch (const Pegasus::Exception& exception) {
        return (typeid(exception) == typeid(Thrown) ? "" : "another exception: ") +
               text(exception.getMessage());
    }
    return "nothing was thrown";
}
