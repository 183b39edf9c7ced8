// SPDX-License-Identifier: MIT
// Who may use the server.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cimhost {

/// Users with their passwords. Immutable; any thread may ask.
class Credentials {
public:
    /// Those of a credentials file; throws what readCredentialsFile() does.
    static Credentials fromFile(const std::string& path);

    /// Whether the value of an Authorization field carries one of the users with their password,
    /// by HTTP Basic. Takes as long for a wrong password as for the right one.
    bool admit(std::string_view authorization) const;

private:
    Credentials() = default;

    std::vector<std::string> tokens_;  ///< as they travel
};

/// Whether two texts are the same. The time it takes depends on the length of `given` alone.
bool equalInConstantTime(std::string_view given, std::string_view secret);

}  // namespace cimhost
