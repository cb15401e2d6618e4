// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "tests/support/nxRecordClasses.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

// The documents that the pages of docs/formats show. docs/formats/README.md says how a page marks them.
namespace nxFormatExamples {
    inline const std::filesystem::path Folder = NX_SOURCE_DIR "/docs/formats";
    inline constexpr char IndexPage[] = "README.md";

    inline std::vector<std::string> Pages() {
        std::vector<std::string> pages;
        for (const auto& entry : std::filesystem::directory_iterator(Folder)) {
            if (entry.path().extension() == ".md" && entry.path().filename() != IndexPage)
                pages.push_back(entry.path().filename().string());
        }
        std::ranges::sort(pages);
        return pages;
    }

    struct Example {
        std::string record;    // category code or root element
        bool isWritten = true; // else a form that is read but not written
        std::string xml;
        std::size_t line = 0; // of the fence
    };

    inline std::vector<Example> ExamplesOf(const std::string& page) {
        const std::regex fence("```xml ([^ ]+)( read-only)?");
        std::ifstream file(Folder / page);
        std::vector<Example> examples;
        bool isInside = false;
        std::string line;
        for (std::size_t number = 1; std::getline(file, line); ++number) {
            std::smatch match;
            if (isInside && line == "```")
                isInside = false;
            else if (isInside)
                examples.back().xml += line + "\n";
            else if (line.starts_with("```xml ")) {
                EXPECT_TRUE(std::regex_match(line, match, fence)) << page << ": " << line;
                examples.push_back({match[1], !match[2].matched, "", number});
                isInside = true;
            }
        }
        EXPECT_FALSE(isInside) << page << " does not close its last example";
        return examples;
    }

    // Calls visit(record) with a new record of the class that an example names.
    auto WithRecord(const std::string& name, auto visit) {
        decltype(visit(std::declval<nxKestrumJobSpec&>())) result{};
        bool isFound = false;
        nxRecordClasses::All::ForEach([&]<class Class>(std::type_identity<Class>) {
            if (nxRecordClasses::NameOf<Class>() != name)
                return;
            Class record;
            result = visit(record);
            isFound = true;
        });
        EXPECT_TRUE(isFound) << name;
        return result;
    }

    // Reads a document and writes it again.
    inline nxErrorEnum ReadAndWrite(const std::string& name, const std::string& xml, std::string& written) {
        return WithRecord(name, [&](auto& record) {
            const nxErrorEnum result = record.ConvertFromXML(xml, "");
            return result.IsOK() ? record.ConvertToXML(written, "") : result;
        });
    }
} // namespace nxFormatExamples
