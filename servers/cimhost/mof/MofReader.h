// SPDX-License-Identifier: MIT
// Reads MOF files into the schema and the repository of the host.
#pragma once

#include <functional>
#include <string>

#include <Pegasus/Common/CIMName.h>

#include "servers/cimhost/mof/MofError.h"
#include "servers/cimhost/repository/Repository.h"
#include "servers/cimhost/schema/Schema.h"

namespace cimhost {

/// Reads qualifier declarations, classes and instances from MOF files.
///
/// Understood are the pragmas "namespace" (holds to the end of the file in which it stands, and in
/// what that includes) and "include" (relative to the including file); other pragmas are skipped.
/// Qualifiers and classes must be declared before they are used. An alias holds from its instance
/// to the end of the outermost file.
///
/// What is wrong throws MofError with file, line and column; what was read before it stays.
/// One thread may use a reader, while nothing else uses its schema.
class MofReader {
public:
    /// Bytes of one file, files read through one reader, and depth of includes.
    static constexpr std::size_t maximumFileSize = std::size_t{4} << 20;
    static constexpr unsigned maximumFiles = 256;
    static constexpr unsigned maximumDepth = 16;

    /// Returns the content of a file or throws std::runtime_error with the reason.
    using FileLoader = std::function<std::string(const std::string& path)>;

    MofReader(Schema& schema, Repository& repository);
    MofReader(Schema& schema, Repository& repository, FileLoader loader);

    /// Reads a file. Where it names no namespace its content goes to `nameSpace`, which is made if
    /// it does not exist.
    void readFile(const std::string& path, const Pegasus::CIMNamespaceName& nameSpace);

private:
    Schema& schema_;
    Repository& repository_;
    FileLoader loader_;
    unsigned filesRead_ = 0;
};

/// Reads a whole file for MofReader.
std::string loadMofFile(const std::string& path);

}  // namespace cimhost
