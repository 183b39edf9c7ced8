// SPDX-License-Identifier: MIT
#include "usbdevices/TerminalOutput.h"

#include <unistd.h>

#include "base/ControlCharacters.h"

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
    const std::string text = base::withoutControls(line_);
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
