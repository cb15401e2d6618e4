// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLLimits.h"

#include "core/nxStringHelper.h"
#include "xmlFramework/xml/nxXMLText.h"

#include <xercesc/util/XMLString.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <string>

namespace {
    // A text that is shorter cannot take long.
    constexpr std::size_t MinSize = 1U << 16U;

    // The parser moves the attributes of an element to sort a new one in.
    constexpr unsigned int MaxAttributes = 10'000;
    constexpr char TooManyAttributes[] = "an element has more than 10000 attributes";

    // Steps of its search for names that take the parser about two seconds.
    constexpr std::uint64_t MaxSteps = 20'000'000;
    constexpr char TooManyNames[] = "the names of elements and attributes would take too long to tell apart";

    // Counts the steps that a document's table of names takes for looking them up: a name is compared with
    // those that came before it to the same place. The table has the same size for all documents.
    class NameTable {
    public:
        // False when there have been too many steps.
        bool LookUp(std::string_view name) {
            constexpr std::size_t CharactersInAStep = 64;
            const auto [entry, isNew] = _steps.try_emplace(name);
            if (isNew)
                entry->second = ++_counts[xercesc::XMLString::hash(nxXMLText(name).Get(), _counts.size())];
            _sum += entry->second * (1 + name.size() / CharactersInAStep);
            return _sum <= MaxSteps;
        }

    private:
        std::map<std::string_view, std::uint64_t> _steps; // sorted: names could be made for any hash
        std::array<std::uint64_t, 257> _counts{};         // at each place
        std::uint64_t _sum = 0;
    };

    // Walks over the tags of a text. What is ill-formed ends the walk at the latest where it ends the
    // parser's.
    class Walk {
    public:
        explicit Walk(std::string_view utf8) : _rest(utf8) {}

        const char* FindProblem();

    private:
        const char* _PassStartTag();
        std::string_view _TakeName();
        void _PassBehind(std::string_view end);
        void _PassWhiteSpace();
        bool _PassValue();

        std::string_view _rest;
        NameTable _names;
    };

    constexpr std::string_view WhiteSpace = " \t\r\n";

    const char* Walk::FindProblem() {
        for (;;) {
            _PassBehind("<");
            if (_rest.empty())
                return nullptr;
            if (_rest.starts_with("!--"))
                _PassBehind("-->");
            else if (_rest.starts_with("![CDATA["))
                _PassBehind("]]>");
            else if (_rest.starts_with("?"))
                _PassBehind("?>");
            else if (!_rest.starts_with("/") && !_rest.starts_with("!")) {
                if (const char* const problem = _PassStartTag())
                    return problem;
            }
        }
    }

    const char* Walk::_PassStartTag() {
        if (!_names.LookUp(_TakeName()))
            return TooManyNames;
        for (unsigned int count = 1;; ++count) {
            _PassWhiteSpace();
            const std::string_view name = _TakeName();
            if (name.empty() || !_PassValue())
                return nullptr;
            if (count > MaxAttributes)
                return TooManyAttributes;
            if (!_names.LookUp(name))
                return TooManyNames;
        }
    }

    std::string_view Walk::_TakeName() {
        const std::string_view name = _rest.substr(0, _rest.find_first_of(" \t\r\n=/><\"'"));
        _rest.remove_prefix(name.size());
        return name;
    }

    // False when there is none.
    bool Walk::_PassValue() {
        _PassWhiteSpace();
        if (!_rest.starts_with('='))
            return false;
        _rest.remove_prefix(1);
        _PassWhiteSpace();
        if (!_rest.starts_with('"') && !_rest.starts_with('\''))
            return false;
        const char quote = _rest.front();
        _rest.remove_prefix(1);
        _PassBehind({&quote, 1});
        return true;
    }

    void Walk::_PassWhiteSpace() {
        _rest.remove_prefix(std::min(_rest.find_first_not_of(WhiteSpace), _rest.size()));
    }

    // To the end of the text when it is not there.
    void Walk::_PassBehind(std::string_view end) {
        const std::size_t found = _rest.find(end);
        _rest.remove_prefix(found == std::string_view::npos ? _rest.size() : found + end.size());
    }
} // namespace

const char* nxXMLLimits::FindProblem(std::string_view utf8) {
    if (utf8.size() < MinSize)
        return nullptr;
    if (utf8.substr(0, utf8.find('>')).find("1.1") == std::string_view::npos)
        return Walk(utf8).FindProblem();

    std::string lines(utf8); // by the rules of XML 1.1, which has more line ends
    nxStringHelper::Replace(lines, "\u0085", "\n");
    nxStringHelper::Replace(lines, "\u2028", "\n");
    return Walk(lines).FindProblem();
}
