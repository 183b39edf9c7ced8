// SPDX-License-Identifier: MIT
// Requests that come from a page in a browser instead of a CIM client.
//
// Functions without state; any thread may call them.
#pragma once

#include "wire/http/HttpMessage.h"

namespace cimhost {

/// Throws RequestRefused (403) for a request that a browser sent, which it shows by Origin or
/// Sec-Fetch-..., and for one to a Host that is neither a loopback address nor "localhost" nor this
/// machine's name, in full or up to its first dot: a page may have made a name of its own mean a
/// loopback address. A request without Host is not refused here.
void requireCimClient(const wire::HttpFields& fields);

}  // namespace cimhost
