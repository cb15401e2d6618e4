// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "tool/color.h"
#include "xmlFramework/xml/nxXMLReport.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tool {
    // Writes findings in a document for people: "job.xml:5:3: /KestrumJobSpec/Limts: unknown element
    // 'Limts'", and below it the line of the document with a mark under the place. What is not written in
    // bytes (UTF-16 and UTF-32) is not shown.
    class FindingLines {
    public:
        // `contents` must outlive this. The lines are for the stream.
        FindingLines(const std::string& path, std::string_view contents, Stream stream);

        // In the order of their places, as reports have them.
        std::string Format(const nxXMLFinding& finding);

    private:
        void _GoTo(std::size_t line, std::size_t column);
        std::string _FormatSource(const nxXMLFinding& finding);

        std::string _name;
        Stream _stream;
        std::string_view _contents;
        const char* _at; // in the contents, at this place:
        std::size_t _line = 1;
        std::size_t _column = 1;
        const char* _lineBegin;
    };

    // All that are a loss.
    std::string FormatLosses(const std::string& path, std::string_view contents,
                             const std::vector<nxXMLFinding>& findings);
} // namespace tool
