// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLReport.h"

#include "core/nxStringHelper.h"

#include <array>
#include <string_view>
#include <utility>

namespace {
    thread_local constinit nxXMLReport* listening = nullptr;

    constexpr std::array<const char*, 10> Codes{
        "not-well-formed", "unknown-element", "unknown-attribute", "repeated",      "not-reached",
        "no-value",        "lost-text",       "item-left-out",     "name-not-kept", "missing"};

    // A text in quotes, as much of it as a line can bear.
    std::string Quoted(std::string_view text) {
        constexpr std::size_t Longest = 80; // bytes
        return "'" + nxStringHelper::GetShortened(text, Longest) + "'";
    }

    std::string Suggestion(const std::string& name) {
        return name.empty() ? std::string() : ": did you mean " + Quoted(name) + "?";
    }
} // namespace

bool nxXMLFinding::IsLoss() const {
    return kind != Kind::Missing;
}

const char* nxXMLFinding::GetCode() const {
    return Codes[static_cast<std::size_t>(kind)];
}

std::string nxXMLFinding::GetMessage() const {
    switch (kind) {
    case Kind::NotWellFormed:
        return reason;
    case Kind::UnknownElement:
        return "unknown element " + Quoted(name) + Suggestion(expected);
    case Kind::UnknownAttribute:
        return "unknown attribute " + Quoted(name) + Suggestion(expected);
    case Kind::Repeated:
        return "one of several elements " + Quoted(name) + ": " + reason;
    case Kind::NotReached:
        return "element " + Quoted(name) + " is not read: " + reason;
    case Kind::NoValue:
        return (found.empty() ? "found no text" : "found " + Quoted(found)) + ", expected " + expected +
               (held.empty() ? "; the record holds nothing" : "; the record holds " + Quoted(held)) +
               Suggestion(reason);
    case Kind::LostText:
        return "text that is not read: " + Quoted(found);
    case Kind::ItemLeftOut:
        return "item " + Quoted(name) + ": " + reason;
    case Kind::NameNotKept:
        return "element " + Quoted(name) + " is read, but written as " + Quoted(expected);
    case Kind::Missing:
        return "element " + Quoted(name) + " is missing" +
               (held.empty() ? std::string() : "; the record holds " + Quoted(held));
    }
    return {};
}

nxXMLReport* nxXMLReport::GetListening() {
    return listening;
}

void nxXMLReport::AddNotWellFormed(std::size_t line, std::size_t column, std::string reason) {
    nxXMLFinding finding;
    finding.kind = nxXMLFinding::Kind::NotWellFormed;
    finding.line = line;
    finding.column = column;
    finding.reason = std::move(reason);
    Add(std::move(finding));
}

nxXMLReport::Listening::Listening(nxXMLReport& report) : _before(std::exchange(listening, &report)) {
    report._findings.clear();
}

nxXMLReport::Listening::~Listening() {
    listening = _before;
}
