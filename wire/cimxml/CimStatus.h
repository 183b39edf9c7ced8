// SPDX-License-Identifier: MIT
// CIM status codes and what a failure looks like to a client.
//
// Functions without state; any thread may call them.
#pragma once

#include <string>

#include <Pegasus/Common/String.h>

namespace wire {

/// A failed operation: the status code and its description in UTF-8.
struct CimFailure {
    unsigned code = 1;
    std::string description;
};

/// The failure that the exception being handled stands for; call it in a catch block only.
///
/// A Pegasus::CIMException keeps its code; any other Pegasus::Exception, any std::exception and
/// anything else is code 1 (CIM_ERR_FAILED) with its text, or "Unknown error.". The description
/// reads "CIM_ERR_<NAME>: text", or the name alone if there is no text.
CimFailure failureOfException();

/// "CIM_ERR_NOT_FOUND: text", or the name alone if the text is empty. Codes without a name read
/// "Unrecognized CIM status code "99"".
std::string describeStatus(unsigned code, const std::string& text);

}  // namespace wire
