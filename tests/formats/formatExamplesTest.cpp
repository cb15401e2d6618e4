// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Reads the pages of docs/formats, so that what they show is what the library does. docs/formats/README.md
// says how a page marks its examples.

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxFormatExamples.h"
#include "tests/support/nxPrint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

namespace {
    using namespace nxFormatExamples;
    using Strings = std::vector<std::string>;

    std::string TextOf(const std::string& page) {
        std::ifstream file(Folder / page);
        return {std::istreambuf_iterator<char>(file), {}};
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
