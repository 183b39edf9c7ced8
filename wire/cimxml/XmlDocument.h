// SPDX-License-Identifier: MIT
// A parsed document to read from. The parser is pugixml; documents pass scanXml() first, because
// pugixml takes almost anything.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <pugixml.hpp>

#include "wire/cimxml/XmlScan.h"

namespace wire {

/// An element of an XmlDocument, or none. As cheap to copy as a pointer; valid as long as the
/// document is.
class XmlElement {
public:
    XmlElement() = default;

    /// Whether there is an element at all.
    explicit operator bool() const { return !node_.empty(); }

    std::string_view name() const { return node_.name(); }

    /// An attribute with its references replaced; absent if the element has none of that name.
    std::optional<std::string> attribute(const char* name) const;

    /// The first element inside this one, none if there is none.
    XmlElement firstChild() const { return XmlElement(node_.first_child()).skipText(); }

    /// The element after this one, none after the last.
    XmlElement next() const { return XmlElement(node_.next_sibling()).skipText(); }

    /// The characters directly inside the element, CDATA sections included. White space at both
    /// ends is dropped unless it was written as a reference or in a CDATA section.
    std::string text() const;

    /// For `for (XmlElement child : element)`: the elements inside this one.
    class Iterator {
    public:
        explicit Iterator(pugi::xml_node node) : node_(node) {}
        XmlElement operator*() const { return XmlElement(node_); }
        Iterator& operator++() {
            node_ = XmlElement(node_).next().node_;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return node_ != other.node_; }

    private:
        pugi::xml_node node_;
    };
    Iterator begin() const { return Iterator(firstChild().node_); }
    static Iterator end() { return Iterator(pugi::xml_node()); }

private:
    friend class XmlDocument;
    explicit XmlElement(pugi::xml_node node) : node_(node) {}

    /// This node if it is an element, otherwise the next sibling that is one.
    XmlElement skipText() const {
        pugi::xml_node node = node_;
        while (!node.empty() && node.type() != pugi::node_element) {
            node = node.next_sibling();
        }
        return XmlElement(node);
    }

    pugi::xml_node node_;
};

/// A document in memory, parsed in place: it keeps the text it was made of.
/// Not copyable; one thread at a time.
class XmlDocument {
public:
    /// Throws XmlError where scanXml() refuses the text.
    explicit XmlDocument(std::string text, const XmlLimits& limits = {});

    XmlDocument(const XmlDocument&) = delete;
    XmlDocument& operator=(const XmlDocument&) = delete;

    XmlElement root() const { return XmlElement(document_.document_element()); }

private:
    std::string text_;
    pugi::xml_document document_;
};

}  // namespace wire
