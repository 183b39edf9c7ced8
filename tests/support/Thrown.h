// SPDX-License-Identifier: MIT
// Tells which exception a call throws.
#pragma once

#include <string>
#include <typeinfo>

#include <Pegasus/Common/Exception.h>

#include "tests/support/ObjectModelText.h"

/// The message of the exception that `call` throws if its type is exactly Thrown; otherwise a text
/// that tells what happened. Exceptions outside the object model propagate.
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
