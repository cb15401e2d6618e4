// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxCSVFileReader.h"

#include "core/nxFileHelper.h"
#include "tests/support/nxPrint.h"
#include "tests/support/nxTempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace std::string_literals;

namespace {
    using Strings = std::vector<std::string>;
    using Lines = std::vector<unsigned int>;

    // A row's columns behind the line on which it begins.
    using Row = std::pair<std::size_t, Strings>;
    using Rows = std::vector<Row>;

    Strings ColumnsOf(const nxCSVFileRow& row) {
        Strings columns;
        for (unsigned int i = 0; i < row.GetColCount(); ++i)
            columns.push_back(row.GetColValue(i));
        return columns;
    }

    Rows RowsOf(const nxCSVFileReader& reader) {
        Rows rows;
        for (const nxCSVFileReader::Row& row : reader.GetRows())
            rows.emplace_back(row.line, ColumnsOf(row.columns));
        return rows;
    }
} // namespace

TEST(nxCSVFileReaderReadString, ReadsRowsAsRfc4180HasThemAndGoesOnBehindABrokenOne) {
    const struct {
        std::string text;
        Rows rows;
        Lines unusable;
    } cases[] = {
        {"", {}, {}},
        {"a,b\r\nc,d", {{1, {"a", "b"}}, {2, {"c", "d"}}}, {}},
        {"a\rb\n", {{1, {"a"}}, {1, {"b"}}}, {}},
        {"a,b\r\n\r\n\n\nc\n", {{1, {"a", "b"}}, {5, {"c"}}}, {}},
        {",,\n,", {{1, {"", "", ""}}, {2, {"", ""}}}, {}},
        {"\"\"\n", {{1, {""}}}, {}},
        {"\"a,b\",\"say \"\"so\"\"\",\"\"\"\"", {{1, {"a,b", "say \"so\"", "\""}}}, {}},
        {"\"one\ntwo\r\n\nfour\",x\nnext\n", {{1, {"one\ntwo\r\n\nfour", "x"}}, {5, {"next"}}}, {}},
        {" a , \t,b \n \n", {{1, {" a ", " \t", "b "}}, {2, {" "}}}, {}},
        {"\xEF\xBB\xBF\"a,b\"\n\xEF\xBB\xBF", {{1, {"a,b"}}, {2, {"\xEF\xBB\xBF"}}}, {}},
        {"\xFF\0,\x01;"s, {{1, {"\xFF\0"s, "\x01;"}}}, {}},
        {"a\nb\"c\nd\n", {{1, {"a"}}, {3, {"d"}}}, {2}},
        {"a\n\"b\" \nd\n", {{1, {"a"}}, {3, {"d"}}}, {2}},
        {"a\n\"never closed\nd\ne", {{1, {"a"}}, {3, {"d"}}, {4, {"e"}}}, {2}},
        {"a\n\"", {{1, {"a"}}}, {2}},
        {"x\"\r\n\r\ny\"\r\nz\r\n", {{4, {"z"}}}, {1, 3}},
        {"1,\"a stray quote\n2,\"sound\"\n3\n", {{2, {"2", "sound"}}, {3, {"3"}}}, {1}},
    };
    for (const auto& [text, rows, unusable] : cases) {
        SCOPED_TRACE(testing::PrintToString(text));
        nxCSVFileReader reader;
        const auto result = unusable.empty() ? nxErrorEnum::OK : nxErrorEnum::InputNotUsable;
        EXPECT_EQ(reader.ReadString(text), result);
        EXPECT_EQ(RowsOf(reader), rows);
        EXPECT_EQ(reader.GetUnusableLines(), unusable);
    }
}

TEST(nxCSVFileReaderHeader, IsTheFirstRowAndNeverALaterOneInItsPlace) {
    nxCSVFileReader reader(';', true, nullptr);
    EXPECT_EQ(reader.ReadString("MIC;NAME\nXNYS;\"A;B\"\n"), nxErrorEnum::OK);
    EXPECT_EQ(ColumnsOf(reader.GetHeader()), (Strings{"MIC", "NAME"}));
    EXPECT_EQ(reader.GetHeader().GetColValue(2), ""); // there is none
    EXPECT_EQ(RowsOf(reader), (Rows{{2, {"XNYS", "A;B"}}}));

    EXPECT_EQ(reader.ReadString("MIC;\"NAME\nXNYS;x\n"), nxErrorEnum::InputNotUsable);
    EXPECT_EQ(ColumnsOf(reader.GetHeader()), Strings());
    EXPECT_EQ(RowsOf(reader), (Rows{{2, {"XNYS", "x"}}}));
}

TEST(nxCSVFileReaderComments, AreTheLinesThatTheCallbackSays) {
    class HashComments : public nxCSVFileReaderCallback {
    public:
        bool IsCommentRow(const std::string& line) override {
            asked.push_back(line);
            return line.starts_with('#');
        }
        Strings asked;
    } comments;
    nxCSVFileReader reader(',', true, &comments);
    EXPECT_EQ(reader.ReadString("# a \"quote\r\nh\n#\na,\"\n# text\"\nb,#\n"), nxErrorEnum::OK);
    EXPECT_EQ(ColumnsOf(reader.GetHeader()), Strings{"h"});
    EXPECT_EQ(RowsOf(reader), (Rows{{4, {"a", "\n# text"}}, {6, {"b", "#"}}}));
    EXPECT_EQ(comments.asked, (Strings{"# a \"quote", "h", "#", "a,\"", "b,#"}));
}

TEST(nxCSVFileReaderReadFile, KeepsTheRowsOfBeforeWhenTheFileCannotBeRead) {
    const nxTempFolder folder;
    std::string problem;
    ASSERT_TRUE(nxFileHelper::Write(folder.PathOf("a.csv"), "a,b\r\n", problem).IsOK()) << problem;
    nxCSVFileReader reader;
    EXPECT_EQ(reader.ReadFile(folder.PathOf("a.csv")), nxErrorEnum::OK);
    EXPECT_EQ(reader.ReadFile(folder.PathOf("missing.csv")), nxErrorEnum::InputNotUsable);
    EXPECT_EQ(RowsOf(reader), (Rows{{1, {"a", "b"}}}));
}

TEST(nxCSVFileReaderGetAsCSVColumn, PutsInQuotesOnlyWhatNeedsThem) {
    EXPECT_EQ(nxCSVFileReader::GetAsCSVColumn("plain; text "), "plain; text ");
    EXPECT_EQ(nxCSVFileReader::GetAsCSVColumn("b,c", ';'), "b,c");
    EXPECT_EQ(nxCSVFileReader::GetAsCSVColumn("a;b,c", ';'), "\"a;b,c\"");
    EXPECT_EQ(nxCSVFileReader::GetAsCSVColumn("say \"so\""), "\"say \"\"so\"\"\"");
    EXPECT_EQ(nxCSVFileReader::GetAsCSVColumn("\xEF\xBB\xBFx"), "\"\xEF\xBB\xBFx\"");
}

TEST(nxCSVFileReaderProperty, RowsOfAnyBytesReadBack) {
    std::mt19937 random(1);
    const std::string likely = "\"\"\r\n,;| \t\xEF\xBB\xBF"s + '\0';
    const auto randomText = [&] {
        std::string text(random() % 6, '\0');
        for (char& c : text)
            c = random() % 2 == 0 ? likely[random() % likely.size()] : static_cast<char>(random());
        return text;
    };
    for (int round = 0; round < 2'000; ++round) {
        const char separator = ",;|\t"[random() % 4];
        Rows rows(1 + random() % 4);
        std::string text;
        for (auto& [line, columns] : rows) {
            line = 1 + static_cast<std::size_t>(std::ranges::count(text, '\n'));
            columns.resize(2 + random() % 3); // a lone empty column would be an empty line
            for (std::size_t i = 0; i < columns.size(); ++i) {
                columns[i] = randomText();
                text.append(i == 0 ? 0 : 1, separator)
                    .append(nxCSVFileReader::GetAsCSVColumn(columns[i], separator));
            }
            text += random() % 2 == 0 ? "\n" : "\r\n";
        }
        nxCSVFileReader reader(separator, false, nullptr);
        ASSERT_EQ(reader.ReadString(text), nxErrorEnum::OK) << testing::PrintToString(text);
        ASSERT_EQ(RowsOf(reader), rows) << testing::PrintToString(text);
    }
}
