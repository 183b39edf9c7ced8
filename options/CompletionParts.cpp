// SPDX-License-Identifier: MIT
#include "options/CompletionParts.h"

#include <algorithm>

namespace options {

std::vector<std::string> spellings(const Option& option) {
    std::vector<std::string> all = {"--" + option.name};
    if (option.letter != 0) {
        all.push_back(std::string("-") + option.letter);
    }
    return all;
}

std::vector<std::string> spellings(const Program& program,
                                   const std::function<bool(const Option&)>& isWanted) {
    std::vector<std::string> all;
    for (const Option& option : program.options) {
        if (isWanted(option)) {
            const std::vector<std::string> own = spellings(option);
            all.insert(all.end(), own.begin(), own.end());
        }
    }
    return all;
}

std::string asIdentifier(std::string text) {
    std::replace(text.begin(), text.end(), '-', '_');
    return text;
}

std::string escaped(const std::string& text, const std::string& special) {
    std::string result;
    for (const char character : text) {
        if (special.find(character) != std::string::npos) {
            result += '\\';
        }
        result += character == '\n' ? ' ' : character;
    }
    return result;
}

}  // namespace options
