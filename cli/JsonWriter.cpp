// SPDX-License-Identifier: MIT
// The only file that includes RapidJSON.
#include "cli/JsonWriter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <utility>

#include <rapidjson/prettywriter.h>

#include "base/Utf8.h"

namespace usbhcdiag {
namespace {

/// The length of what stands at the beginning of bytes that are no UTF-8 and is replaced as one: a character that
/// breaks off, or a single byte.
std::size_t replacedLength(std::string_view text) {
    for (const std::size_t length : {3U, 2U}) {
        if (length > text.size()) {
            continue;
        }
        std::array<char, 4> completed{};
        completed.fill('\x80');
        std::copy_n(text.begin(), length, completed.begin());
        if (base::readUtf8(completed.data(), completed.size()).length > length) {
            return length;
        }
    }
    return 1;
}

std::string validUtf8(std::string_view text) {
    std::string valid;
    while (!text.empty()) {
        const base::Utf8Sequence sequence = base::readUtf8(text.data(), text.size());
        const std::size_t length = sequence.length > 0 ? sequence.length : replacedLength(text);
        base::appendUtf8(valid, sequence.length > 0 ? sequence.code : base::replacementCharacter);
        text.remove_prefix(length);
    }
    return valid;
}

}  // namespace

class JsonWriter::Document {
    /// What RapidJSON writes to.
    class Buffer {
    public:
        using Ch = char;

        explicit Buffer(Output output) : output_(std::move(output)) {}

        void Put(char character) {  // NOLINT(readability-identifier-naming): RapidJSON's
            // The last bytes are for the end of a character.
            if (length_ + longestCharacter > bytes_.size() && !base::continuesUtf8(character)) {
                pass();
            }
            bytes_[length_++] = character;
        }

        /// RapidJSON calls it at the end, before the line feed.
        void Flush() {}  // NOLINT(readability-identifier-naming): RapidJSON's

        void pass() {
            output_(std::string_view(bytes_.data(), length_));
            length_ = 0;
        }

    private:
        static constexpr std::size_t longestCharacter = 4;

        Output output_;
        std::size_t length_ = 0;
        std::array<char, 65536> bytes_{};
    };

public:
    explicit Document(Output output) : buffer_(std::move(output)), writer_(buffer_) {
        constexpr unsigned indentation = 2;
        writer_.SetIndent(' ', indentation);
    }

    rapidjson::PrettyWriter<Buffer>& writer() { return writer_; }
    Buffer& buffer() { return buffer_; }

private:
    Buffer buffer_;
    rapidjson::PrettyWriter<Buffer> writer_;
};

JsonWriter::JsonWriter(Output output) : document_(std::make_unique<Document>(std::move(output))) {}

JsonWriter::~JsonWriter() = default;

void JsonWriter::beginObject() {
    document_->writer().StartObject();
}

void JsonWriter::endObject() {
    document_->writer().EndObject();
}

void JsonWriter::beginArray() {
    document_->writer().StartArray();
}

void JsonWriter::endArray() {
    document_->writer().EndArray();
}

void JsonWriter::key(std::string_view name) {
    string(name);
}

void JsonWriter::null() {
    document_->writer().Null();
}

void JsonWriter::boolean(bool value) {
    document_->writer().Bool(value);
}

void JsonWriter::number(std::uint64_t value) {
    document_->writer().Uint64(value);
}

void JsonWriter::number(std::int64_t value) {
    document_->writer().Int64(value);
}

void JsonWriter::number(double value) {
    if (std::isfinite(value)) {
        document_->writer().Double(value);
    } else {
        null();
    }
}

void JsonWriter::string(std::string_view text) {
    const std::string replaced = base::isUtf8(text) ? std::string() : validUtf8(text);
    const std::string_view valid = replaced.empty() ? text : replaced;
    document_->writer().String(valid.data(), static_cast<rapidjson::SizeType>(valid.size()));
}

void JsonWriter::textOrNull(std::string_view name, std::string_view text) {
    key(name);
    if (text.empty()) {
        null();
    } else {
        string(text);
    }
}

void JsonWriter::finish() {
    document_->buffer().Put('\n');
    document_->buffer().pass();
}

std::string jsonText(const std::function<void(JsonWriter&)>& write) {
    std::string text;
    JsonWriter json([&text](std::string_view part) { text += part; });
    write(json);
    json.finish();
    return text;
}

}  // namespace usbhcdiag
