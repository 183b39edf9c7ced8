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
    /// Reads a file of lines "user:password"; empty lines and lines that begin with "#" are passed
    /// over. Throws std::runtime_error, naming the file, if it cannot be read, if anyone but its
    /// owner may read or write it, if it belongs to anyone but this user or root, if it is larger
    /// than 64 KiB, or if a line reads otherwise (the line's number is named) or there is none.
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
