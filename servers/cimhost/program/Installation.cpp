// SPDX-License-Identifier: MIT
#include "servers/cimhost/program/Installation.h"

#include <filesystem>
#include <system_error>

namespace cimhost {

namespace {

std::string firstExisting(const std::filesystem::path& folder, const char* inBuildFolder,
                          const char* installed) {
    std::error_code failure;
    const auto inBuild = (folder / inBuildFolder).lexically_normal();
    return std::filesystem::exists(inBuild, failure)
               ? inBuild.string()
               : (folder / installed).lexically_normal().string();
}

}  // namespace

Installation findInstallation() {
    std::error_code failure;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
    const auto folder = program.parent_path();
    return Installation{
        firstExisting(folder, "../share/" ZORVA_MOF_NAME, ZORVA_INSTALLED_DATA "/" ZORVA_MOF_NAME),
        firstExisting(folder, "../lib/" ZORVA_LIBRARY, ZORVA_INSTALLED_LIB "/" ZORVA_LIBRARY)};
}

}  // namespace cimhost
