// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLSink.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

// Appends a document to a text, as one line of UTF-8 (but for the line feeds of its texts): "<A></A>" for an
// empty text, "<A/>" for an element without anything. Nothing more is appended once something could not be
// carried.
class nxXMLTextSink final : public nxXMLSink {
public:
    explicit nxXMLTextSink(std::string& text) : _text(text) {}

    void Start(std::string_view name) override;
    void Attribute(std::string_view name, std::string_view value) override;
    void Field(std::string_view name, std::string_view text) override;
    void End() override;

    // To be called at the end: until then `text` has only part of what was written.
    void Flush();
    // What could not be carried, for people; empty when everything was.
    const std::string& GetProblem() const { return _problem; }

private:
    std::string_view _Parent() const { return _open.empty() ? std::string_view() : _open.back(); }
    template <class Describe>
    void _Refuse(std::string_view element, Describe describe);
    void _RefuseText(const char* what, std::string_view text, std::string_view element);
    void _Reserve(std::size_t size);
    void _Put(char c) { *_next++ = c; }
    void _PutName(std::string_view name);
    void _PutEndTag(std::string_view name);
    void _CloseStartTag();
    template <class Where>
    bool _PutEscaped(std::string_view text);

    // Pieces gather here: appending each to the text on its own would cost as much as all the rest.
    static constexpr std::size_t BufferSize = 16384;

    std::string& _text;
    std::vector<std::string_view> _open; // the names of the elements that have not ended
    bool _isInStartTag = false;
    std::string _problem;
    std::array<char, BufferSize> _buffer;
    char* _next = _buffer.data();
};
