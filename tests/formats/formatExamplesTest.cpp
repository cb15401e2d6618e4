// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Reads the pages of docs/formats, so that what they show is what the library does. docs/formats/README.md
// says how a page marks its examples.

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxPrint.h"
#include "xmlFramework/kestrum/nxKestrumUserLimit.h"
#include "xmlFramework/market/nxOrvalenPriceUsageStatistics.h"
#include "xmlFramework/xml/nxXMLDataObject.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <regex>
#include <string>
#include <vector>

namespace {
    using Strings = std::vector<std::string>;

    const std::filesystem::path Folder = NX_SOURCE_DIR "/docs/formats";
    constexpr char IndexPage[] = "README.md";

    std::string TextOf(const std::string& page) {
        std::ifstream file(Folder / page);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    Strings Pages() {
        Strings pages;
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

    std::vector<Example> ExamplesOf(const std::string& page) {
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

    nxErrorEnum Convert(auto& record, const std::string& xml, std::string& written) {
        const nxErrorEnum result = record.ConvertFromXML(xml, "");
        return result.IsOK() ? record.ConvertToXML(written, "") : result;
    }

    // Reads a document and writes it again.
    nxErrorEnum ReadAndWrite(const std::string& record, const std::string& xml, std::string& written) {
        if (record == "OPUS") { // not registered
            nxOrvalenPriceUsageStatistics statistics;
            return Convert(statistics, xml, written);
        }
        if (record == "KestrumUserLimit") { // has no code
            nxKestrumUserLimit limit;
            return Convert(limit, xml, written);
        }
        unsigned int code = 0;
        for (const char c : record)
            code = code << 8 | static_cast<unsigned char>(c);
        const std::unique_ptr<nxXMLDataObject> object(nxXMLDataObject::CreateInstance(code));
        if (record.size() != 4 || !object)
            return nxErrorEnum::InvalidRecord;
        return Convert(*object, xml, written);
    }

    // The elements of an example that hold a text and nothing else, as they stand.
    Strings ValuesOf(const std::string& xml) {
        static const std::regex value("<([^<>/ ]+)>[^<]*[^<\\s][^<]*</\\1>");
        return {std::sregex_token_iterator(xml.begin(), xml.end(), value), {}};
    }

    void Check(const Example& example) {
        const nxCollectedLog log(nxLogLevelEnum::Warning);
        std::string first;
        ASSERT_EQ(ReadAndWrite(example.record, example.xml, first), nxErrorEnum::OK) << example.record;
        std::string second;
        ASSERT_EQ(ReadAndWrite(example.record, first, second), nxErrorEnum::OK) << first;
        EXPECT_EQ(second, first);
        EXPECT_EQ(log.Entries(), Strings());
        if (!example.isWritten)
            return;
        for (const std::string& value : ValuesOf(example.xml))
            EXPECT_NE(first.find(value), std::string::npos) << value << " is not written again:\n" << first;
    }

    class FormatPage : public testing::TestWithParam<std::string> {};

    std::string CaseName(const testing::TestParamInfo<std::string>& page) {
        std::string name = page.param.substr(0, page.param.size() - 3); // without .md
        std::ranges::replace_if(
            name, [](unsigned char c) { return !std::isalnum(c); }, '_');
        return name;
    }
} // namespace

TEST_P(FormatPage, HoldsExamplesThatReadBack) {
    const std::vector<Example> examples = ExamplesOf(GetParam());
    EXPECT_FALSE(examples.empty()) << "a page has at least one example";
    for (const Example& example : examples) {
        SCOPED_TRACE(GetParam() + ":" + std::to_string(example.line));
        Check(example);
    }
}

INSTANTIATE_TEST_SUITE_P(docs, FormatPage, testing::ValuesIn(Pages()), CaseName);

TEST(FormatIndex, LinksEveryPageAndNoOther) {
    const std::string index = TextOf(IndexPage);
    const std::regex link("\\]\\(([^)/]+\\.md)\\)");
    Strings linked;
    for (std::sregex_iterator found(index.begin(), index.end(), link); found != std::sregex_iterator();
         ++found)
        linked.push_back((*found)[1]);
    std::ranges::sort(linked);
    linked.erase(std::unique(linked.begin(), linked.end()), linked.end());
    EXPECT_EQ(linked, Pages());
}
