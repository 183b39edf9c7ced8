// SPDX-License-Identifier: MIT
#include "usbdevices/TerminalOutput.h"

#include <unistd.h>

namespace {

constexpr char replacement[] = "\xEF\xBF\xBD";

unsigned byteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

/// The length of the UTF-8 sequence that `text` begins with; 0 if it begins with none, or with that of a
/// control character.
std::size_t lengthOfCharacter(std::string_view text) {
    const unsigned lead = byteAt(text, 0);
    if (lead < 0x80) {
        return lead < 0x20 || lead == 0x7F ? 0 : 1;
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return 0;
    }
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (text.size() < length) {
        return 0;
    }
    for (std::size_t at = 1; at < length; ++at) {
        if ((byteAt(text, at) & 0xC0U) != 0x80) {
            return 0;
        }
    }
    // Control characters, forms longer than need be, surrogates, and what lies beyond U+10FFFF.
    const unsigned second = byteAt(text, 1);
    const bool isNone = (lead == 0xC2 && second < 0xA0) || (lead == 0xE0 && second < 0xA0) ||
                        (lead == 0xED && second >= 0xA0) || (lead == 0xF0 && second < 0x90) ||
                        (lead == 0xF4 && second >= 0x90);
    return isNone ? 0 : length;
}

}  // namespace

std::string withoutControls(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t length = lengthOfCharacter(text);
        if (length == 0) {
            // One sign for a control character of two bytes.
            const bool isPair =
                byteAt(text, 0) == 0xC2 && text.size() > 1 && (byteAt(text, 1) & 0xC0U) == 0x80;
            result += replacement;
            text.remove_prefix(isPair ? 2 : 1);
        } else {
            result += text.substr(0, length);
            text.remove_prefix(length);
        }
    }
    return result;
}

TerminalOutput::TerminalOutput(std::ostream& stream, int descriptor)
    : stream_(stream), before_(stream.rdbuf()), buffer_(before_) {
    if (isatty(descriptor) == 1) {
        stream_.rdbuf(&buffer_);
    }
}

TerminalOutput::~TerminalOutput() {
    if (stream_.rdbuf() == &buffer_) {
        buffer_.writeLine();
        stream_.rdbuf(before_);
    }
}

bool TerminalOutput::Buffer::writeLine() {
    const std::string text = withoutControls(line_);
    line_.clear();
    return terminal_->sputn(text.data(), static_cast<std::streamsize>(text.size())) ==
           static_cast<std::streamsize>(text.size());
}

TerminalOutput::Buffer::int_type TerminalOutput::Buffer::overflow(int_type character) {
    if (traits_type::eq_int_type(character, traits_type::eof())) {
        return traits_type::not_eof(character);
    }
    if (traits_type::to_char_type(character) != '\n') {
        line_ += traits_type::to_char_type(character);
        return character;
    }
    return writeLine() ? terminal_->sputc('\n') : traits_type::eof();
}
