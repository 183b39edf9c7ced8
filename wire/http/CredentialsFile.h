// SPDX-License-Identifier: MIT
// Users and passwords in a file, as servers demand them and clients send them.
//
// Functions without state; any thread may call them.
#pragma once

#include <string>
#include <vector>

namespace wire {

/// Reads a file of lines "user:password" and returns them; empty lines and lines that begin with
/// "#" are skipped. Throws std::runtime_error, naming the file, if it cannot be read, if anyone
/// but its owner may read or write it, if it belongs to anyone but this user or root, if it is
/// larger than 64 KiB, or if a line reads otherwise (the line's number is named) or there is none.
std::vector<std::string> readCredentialsFile(const std::string& path);

}  // namespace wire
