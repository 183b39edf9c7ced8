// SPDX-License-Identifier: MIT
// What is wrong in a MOF file, and where.
#pragma once

#include <stdexcept>
#include <string>

namespace cimhost {

/// A place in a MOF file; line and column count from 1, the column in characters.
struct MofPosition {
    std::string file;
    unsigned line = 1;
    unsigned column = 1;
};

/// An error in a MOF file, thrown by the thread that reads it; what() reads "FILE:LINE:COLUMN: TEXT".
class MofError : public std::runtime_error {
public:
    MofError(const MofPosition& position, const std::string& text)
        : std::runtime_error(position.file + ":" + std::to_string(position.line) + ":" +
                             std::to_string(position.column) + ": " + text) {}
};

}  // namespace cimhost
