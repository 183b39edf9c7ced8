// SPDX-License-Identifier: MIT
#include "servers/cimhost/mof/MofReader.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "servers/cimhost/mof/MofParser.h"

namespace cimhost {

namespace {

std::string besides(const std::string& includingFile, const std::string& file) {
    const auto slash = includingFile.rfind('/');
    const bool absolute = !file.empty() && file.front() == '/';
    return absolute || slash == std::string::npos ? file
                                                  : includingFile.substr(0, slash + 1) + file;
}

}  // namespace

std::string loadMofFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::system_error(errno, std::generic_category());
    }
    std::string content;
    char block[4096];
    while (file.read(block, sizeof block) || file.gcount() > 0) {
        content.append(block, static_cast<std::size_t>(file.gcount()));
        if (content.size() > MofReader::maximumFileSize) {
            break;
        }
    }
    if (file.bad()) {
        throw std::runtime_error("it cannot be read");
    }
    return content;
}

MofReader::MofReader(Schema& schema, Repository& repository)
    : MofReader(schema, repository, loadMofFile) {}

MofReader::MofReader(Schema& schema, Repository& repository, FileLoader loader)
    : schema_(schema), repository_(repository), loader_(std::move(loader)) {}

void MofReader::readFile(const std::string& path, const Pegasus::CIMNamespaceName& nameSpace) {
    schema_.addNamespace(nameSpace);
    unsigned depth = 0;
    MofCompilation compilation{schema_, repository_, {}, {}};
    compilation.include = [&](const std::string& file, const MofPosition& position,
                              const Pegasus::CIMNamespaceName& includedNamespace) {
        const std::string fullPath = depth == 0 ? file : besides(position.file, file);
        if (depth >= maximumDepth) {
            throw MofError(position, "includes are nested too deeply");
        }
        if (filesRead_ >= maximumFiles) {
            throw MofError(
                position, "there are more than " + std::to_string(maximumFiles) + " files to read");
        }
        ++filesRead_;
        std::string content;
        try {
            content = loader_(fullPath);
        } catch (const std::exception& failure) {
            throw MofError(position, "cannot read " + fullPath + ": " + failure.what());
        }
        if (content.size() > maximumFileSize) {
            throw MofError({fullPath}, "the file is larger than 4 MiB");
        }
        ++depth;
        MofParser(content, fullPath, compilation, includedNamespace).parse();
        --depth;
    };
    compilation.include(path, {path}, nameSpace);
}

}  // namespace cimhost
