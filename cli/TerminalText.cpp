// SPDX-License-Identifier: MIT
#include "cli/TerminalText.h"

#include <algorithm>
#include <clocale>
#include <cwchar>

#include "base/Utf8.h"

namespace usbhcdiag {
namespace {

/// The system's knowledge of characters, whatever the user's locale is.
locale_t characterLocale() {
    static const locale_t locale = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

}  // namespace

std::string linesWithoutControls(std::string_view text) {
    std::string result;
    for (std::size_t begin = 0;;) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        result += withoutControls(text.substr(begin, end - begin));
        if (end == text.size()) {
            return result;
        }
        result += '\n';
        begin = end + 1;
    }
}

std::string withoutLineFeeds(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char character : text) {
        if (character == '\n') {
            base::appendUtf8(result, base::replacementCharacter);
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
    while (!text.empty()) {
        const base::Utf8Sequence sequence = base::readUtf8(text.data(), text.size());
        // What has no column of its own: accents and controls.
        const int columns =
            sequence.length > 0 ? ::wcwidth(static_cast<wchar_t>(sequence.code)) : 1;
        width += columns > 0 ? static_cast<size_t>(columns) : 0;
        text.remove_prefix(sequence.length > 0 ? sequence.length : 1);
    }
    ::uselocale(before);
    return width;
}

}  // namespace usbhcdiag
