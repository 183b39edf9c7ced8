// SPDX-License-Identifier: MIT
// Keeps what devices call themselves from steering the terminal.
#pragma once

#include <ostream>
#include <streambuf>
#include <string>

/// While the object exists, a stream that goes to a terminal replaces control characters, line by line;
/// the stream keeps the end of a line back until its line feed. A stream that goes elsewhere is left
/// alone. For one thread.
class TerminalOutput {
public:
    /// `descriptor`: what the stream writes to.
    TerminalOutput(std::ostream& stream, int descriptor);
    ~TerminalOutput();
    TerminalOutput(const TerminalOutput&) = delete;
    TerminalOutput& operator=(const TerminalOutput&) = delete;

private:
    class Buffer : public std::streambuf {
    public:
        explicit Buffer(std::streambuf* terminal) : terminal_(terminal) {}
        bool writeLine();

    protected:
        int_type overflow(int_type character) override;
        int sync() override { return terminal_->pubsync(); }

    private:
        std::streambuf* terminal_;
        std::string line_;
    };

    std::ostream& stream_;
    std::streambuf* before_;
    Buffer buffer_;
};
