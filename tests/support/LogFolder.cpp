// SPDX-License-Identifier: MIT
#include "tests/support/LogFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

LogFolder::LogFolder() : before_(std::filesystem::current_path()) {
    std::string name = std::filesystem::temp_directory_path() / "provider-log.XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("cannot make the folder " + name);
    }
    path_ = name;
    std::filesystem::current_path(path_);
}

LogFolder::~LogFolder() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
    std::filesystem::remove_all(path_, ignored);
}

std::string LogFolder::take() {
    std::ifstream file(ZORVA_LOG_FILE, std::ios::binary);
    std::string content(std::istreambuf_iterator<char>(file), {});
    std::filesystem::remove(ZORVA_LOG_FILE);
    return content;
}
