// SPDX-License-Identifier: MIT
#include "cli/Text.h"

#include <clocale>
#include <cwchar>

namespace usbhcdiag {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";  // U+FFFD

bool isControl(unsigned char byte) {
    return byte < 0x20 || byte == 0x7F;
}

/// Whether a C1 control (U+0080 to U+009F, two bytes) stands at `index`.
bool isLongControl(std::string_view text, size_t index) {
    return text[index] == '\xC2' && index + 1 < text.size() &&
           static_cast<unsigned char>(text[index + 1]) < 0xA0;
}

/// The system's knowledge of characters, whatever the user's locale is.
locale_t characterLocale() {
    static const locale_t locale = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

}  // namespace

std::string withoutControls(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (isControl(static_cast<unsigned char>(text[i]))) {
            result += replacement;
        } else if (isLongControl(text, i)) {
            result += replacement;
            ++i;
        } else {
            result += text[i];
        }
    }
    return result;
}

std::string withoutLineFeeds(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char character : text) {
        if (character == '\n') {
            result += replacement;
        } else {
            result += character;
        }
    }
    return result;
}

size_t displayWidth(std::string_view text) {
    const locale_t locale = characterLocale();
    if (locale == nullptr) {
        return text.size();
    }
    const locale_t before = ::uselocale(locale);
    size_t width = 0;
    std::mbstate_t state{};
    while (!text.empty()) {
        wchar_t character = 0;
        const size_t length = std::mbrtowc(&character, text.data(), text.size(), &state);
        const bool isCharacter = length > 0 && length <= text.size();
        const int columns = isCharacter ? ::wcwidth(character) : 1;
        width += columns > 0 ? static_cast<size_t>(columns) : 0;
        if (!isCharacter) {
            state = {};
        }
        text.remove_prefix(isCharacter ? length : 1);
    }
    ::uselocale(before);
    return width;
}

}  // namespace usbhcdiag
