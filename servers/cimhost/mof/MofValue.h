// SPDX-License-Identifier: MIT
// Literals of MOF and the values that they stand for.
//
// Functions without state; any thread may call them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>

#include "servers/cimhost/mof/MofError.h"

namespace cimhost {

/// One literal as it stands in the file.
struct MofLiteral {
    enum class Kind { null, boolean, integer, real, text, character, reference };

    Kind kind = Kind::null;
    MofPosition position;
    std::string text;             ///< of Text (adjacent strings joined) and Real
    std::uint64_t magnitude = 0;  ///< of Integer and Character; of Boolean 1 or 0
    bool negative = false;        ///< of Integer
    Pegasus::CIMObjectPath path;  ///< of Reference: the instance that an alias names
};

/// What follows an equals sign, or stands in the parentheses of a qualifier: a literal or a list.
struct MofValue {
    MofPosition position;
    bool isList = false;
    std::vector<MofLiteral> literals;  ///< exactly one unless it is a list
};

/// The value as one of the type. NULL stands for the null of every type. MofError, at the literal
/// at fault, where a literal is of another type, out of range or malformed, or where a list stands
/// for a single value or the other way round.
Pegasus::CIMValue toCimValue(const MofValue& value, Pegasus::CIMType type, bool isArray);

/// The type of that MOF keyword ("uint8", "datetime", ...; compared without case); false for a word
/// that is none.
bool parseTypeName(const std::string& word, Pegasus::CIMType& type);

/// UTF-8 bytes as a String; MofError at the position where they are none.
Pegasus::String toString(const std::string& text, const MofPosition& position);

}  // namespace cimhost
