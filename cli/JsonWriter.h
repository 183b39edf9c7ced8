// SPDX-License-Identifier: MIT
// JSON documents, written value by value.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace usbhcdiag {

/// One document, indented by two blanks. Its text is passed on in parts, each as soon as it has some length and
/// none ending within a character, so that a long document takes no memory. The document is valid UTF-8
/// whatever the strings hold: U+FFFD stands for what is none. Calls must make up one value, as JSON
/// has it: a key and a value in turn inside an object. One thread at a time.
class JsonWriter {
public:
    using Output = std::function<void(std::string_view)>;

    explicit JsonWriter(Output output);
    ~JsonWriter();
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    void key(std::string_view name);

    void null();
    void boolean(bool value);
    void number(std::uint64_t value);
    void number(std::int64_t value);
    void number(double value);  ///< null if it is not finite
    void string(std::string_view text);

    /// By its type; null for an optional without a value.
    template <typename Value>
    void value(const Value& value) {
        if constexpr (std::is_same_v<Value, bool>) {
            boolean(value);
        } else if constexpr (std::is_floating_point_v<Value>) {
            number(double{value});
        } else if constexpr (std::is_unsigned_v<Value>) {
            number(std::uint64_t{value});
        } else if constexpr (std::is_signed_v<Value>) {
            number(std::int64_t{value});
        } else if constexpr (std::is_convertible_v<Value, std::string_view>) {
            string(value);
        } else if (value) {
            this->value(*value);
        } else {
            null();
        }
    }

    void value(std::nullptr_t) { null(); }

    template <typename Value>
    void member(std::string_view name, const Value& value) {
        key(name);
        this->value(value);
    }

    /// A member that is null without text.
    void textOrNull(std::string_view name, std::string_view text);

    /// Passes on what is left, with a line feed at the end. Without this the document stays unfinished.
    void finish();

private:
    class Document;
    std::unique_ptr<Document> document_;
};

/// The document that `write` writes, as one text.
std::string jsonText(const std::function<void(JsonWriter&)>& write);

}  // namespace usbhcdiag
