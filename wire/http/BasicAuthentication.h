// SPDX-License-Identifier: MIT
// HTTP Basic authentication: the form in which user and password travel.
//
// Functions without state; any thread may call them.
#pragma once

#include <string>
#include <string_view>

namespace wire {

/// The value of the Authorization field for "user:password".
std::string basicAuthorization(std::string_view userAndPassword);

/// What follows the scheme in the value of an Authorization field; empty for other schemes.
std::string_view basicToken(std::string_view authorization);

}  // namespace wire
