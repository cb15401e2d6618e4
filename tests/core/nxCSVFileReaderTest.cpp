// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxCSVFileReader.h"

#include "core/nxFileHelper.h"
#include "tests/support/nxPrint.h"
#include "tests/support/nxTempFolder.h"

#include <gtest/gtest.h>

#include <random>

using namespace std::string_literals;

namespace {
    using Columns = std::vector<std::string>;
    using Lines = std::vector<unsigned int>;

    Columns ColumnsOf(const nxCSVFileRow& row) {
        Columns columns;
        for (unsigned int i = 0; i < row.GetColCount(); ++i)
            columns.push_back(row.GetColValue(i));
        return columns;
    }

    std::vector<Columns> RowsOf(const nxCSVFileReader& reader) {
        std::vector<Columns> rows;
        for (const nxCSVFileReader::Row& row : reader.GetRows())
            rows.push_back(ColumnsOf(row.columns));
        return rows;
    }

    Lines LinesOf(const nxCSVFileReader& reader) {
        Lines lines;
        for (const nxCSVFileReader::Row& row : reader.GetRows())
            lines.push_back(row.line);
        return lines;
    }

    class HashComments : public nxCSVFileReaderCallback {
    public:
        bool IsCommentRow(const std::string& line) override {
            asked.push_back(line);
            return line.starts_with('#');
        }
        Columns asked;
    };
} // namespace

TEST(nxCSVFileReaderReadString, ReadsRowsAsRfc4180HasThem) {
    const struct {
        std::string text;
        std::vector<Columns> rows;
        Lines lines;
    } cases[] = {
        {"", {}, {}},
        {"a", {{"a"}}, {1}},
        {"a,b\nc,d\n", {{"a", "b"}, {"c", "d"}}, {1, 2}},
        {"a,b\r\nc,d", {{"a", "b"}, {"c", "d"}}, {1, 2}},
        {"a\rb\n", {{"a"}, {"b"}}, {1, 1}},
        {"a,b\r\n\r\n\n\nc\n", {{"a", "b"}, {"c"}}, {1, 5}},
        {",,\n,", {{"", "", ""}, {"", ""}}, {1, 2}},
        {"\"a\",\"\"\n", {{"a", ""}}, {1}},
        {"\"\"\n", {{""}}, {1}},
        {"\"a,b\",c", {{"a,b", "c"}}, {1}},
        {"\"say \"\"so\"\"\",\"\"\"\"", {{"say \"so\"", "\""}}, {1}},
        {"\"one\ntwo\r\n\nfour\",x\nnext\n", {{"one\ntwo\r\n\nfour", "x"}, {"next"}}, {1, 5}},
        {" a , \t,b \n \n", {{" a ", " \t", "b "}, {" "}}, {1, 2}},
        {"\xEF\xBB\xBF\"a,b\"\nc", {{"a,b"}, {"c"}}, {1, 2}},
        {"a\n\xEF\xBB\xBF", {{"a"}, {"\xEF\xBB\xBF"}}, {1, 2}},
        {"\xFF\0,\x01"s, {{"\xFF\0"s, "\x01"}}, {1}},
        {"caf\xC3\xA9;x,y", {{"caf\xC3\xA9;x", "y"}}, {1}},
    };
    for (const auto& [text, rows, lines] : cases) {
        nxCSVFileReader reader;
        EXPECT_EQ(reader.ReadString(text), nxErrorEnum::OK) << text;
        EXPECT_EQ(RowsOf(reader), rows) << text;
        EXPECT_EQ(LinesOf(reader), lines) << text;
        EXPECT_EQ(reader.GetUnusableLines(), Lines()) << text;
    }
}

TEST(nxCSVFileReaderReadString, ReportsABrokenRowByItsLineAndGoesOnBehindIt) {
    const struct {
        const char* text;
        std::vector<Columns> rows;
        Lines unusable;
    } cases[] = {
        {"a\nb\"c\nd\n", {{"a"}, {"d"}}, {2}},
        {"a\n\"b\"c\nd\n", {{"a"}, {"d"}}, {2}},
        {"a\n\"b\" \nd\n", {{"a"}, {"d"}}, {2}},
        {"a\n\"never closed\nd\ne", {{"a"}, {"d"}, {"e"}}, {2}},
        {"a\n\"never closed", {{"a"}}, {2}},
        {"a\n\"", {{"a"}}, {2}},
        {"x\"\r\n\r\ny\"\r\nz\r\n", {{"z"}}, {1, 3}},
        {"1,\"a stray quote\n2,\"sound\"\n3\n", {{"2", "sound"}, {"3"}}, {1}},
    };
    for (const auto& [text, rows, unusable] : cases) {
        nxCSVFileReader reader;
        EXPECT_EQ(reader.ReadString(text), nxErrorEnum::InputNotUsable) << text;
        EXPECT_EQ(RowsOf(reader), rows) << text;
        EXPECT_EQ(reader.GetUnusableLines(), unusable) << text;
    }
}

TEST(nxCSVFileReaderHeader, IsTheFirstRowAndNeverALaterOneInItsPlace) {
    nxCSVFileReader reader(';', true, nullptr);
    EXPECT_EQ(reader.ReadString("MIC;NAME\nXNYS;\"A;B\"\n"), nxErrorEnum::OK);
    EXPECT_EQ(ColumnsOf(reader.GetHeader()), (Columns{"MIC", "NAME"}));
    EXPECT_EQ(RowsOf(reader), (std::vector<Columns>{{"XNYS", "A;B"}}));
    EXPECT_EQ(LinesOf(reader), Lines{2});

    EXPECT_EQ(reader.ReadString("MIC;\"NAME\nXNYS;x\n"), nxErrorEnum::InputNotUsable);
    EXPECT_EQ(ColumnsOf(reader.GetHeader()), Columns());
    EXPECT_EQ(RowsOf(reader), (std::vector<Columns>{{"XNYS", "x"}}));

    EXPECT_EQ(reader.ReadString(""), nxErrorEnum::OK);
    EXPECT_EQ(reader.GetHeader().GetColCount(), 0U);
    EXPECT_EQ(RowsOf(reader), std::vector<Columns>());
}

TEST(nxCSVFileReaderComments, AreTheLinesThatTheCallbackSays) {
    HashComments comments;
    nxCSVFileReader reader(',', true, &comments);
    EXPECT_EQ(reader.ReadString("# a \"quote\r\nh\n#\na,\"\n# text\"\nb,#\n"), nxErrorEnum::OK);
    EXPECT_EQ(ColumnsOf(reader.GetHeader()), Columns{"h"});
    EXPECT_EQ(RowsOf(reader), (std::vector<Columns>{{"a", "\n# text"}, {"b", "#"}}));
    EXPECT_EQ(LinesOf(reader), (Lines{4, 6}));
    EXPECT_EQ(comments.asked, (Columns{"# a \"quote", "h", "#", "a,\"", "b,#"}));
}

TEST(nxCSVFileReaderReadFile, KeepsTheRowsOfBeforeWhenTheFileCannotBeRead) {
    const nxTempFolder folder;
    std::string problem;
    ASSERT_TRUE(nxFileHelper::Write(folder.PathOf("a.csv"), "a,b\r\n", problem).IsOK()) << problem;
    nxCSVFileReader reader;
    EXPECT_EQ(reader.ReadFile(folder.PathOf("a.csv")), nxErrorEnum::OK);
    EXPECT_EQ(reader.ReadFile(folder.PathOf("missing.csv")), nxErrorEnum::InputNotUsable);
    EXPECT_EQ(RowsOf(reader), (std::vector<Columns>{{"a", "b"}}));
}

TEST(nxCSVFileReaderGetAsCSVColumn, PutsInQuotesOnlyWhatNeedsThem) {
    const struct {
        std::string text;
        std::string column;
    } cases[] = {
        {"", ""},
        {"plain; text ", "plain; text "},
        {"a,b", "\"a,b\""},
        {"say \"so\"", "\"say \"\"so\"\"\""},
        {"a\nb", "\"a\nb\""},
        {"a\rb", "\"a\rb\""},
        {"\xEF\xBB\xBFx", "\"\xEF\xBB\xBFx\""},
    };
    for (const auto& [text, column] : cases)
        EXPECT_EQ(nxCSVFileReader::GetAsCSVColumn(text), column);
    EXPECT_EQ(nxCSVFileReader::GetAsCSVColumn("a;b,c", ';'), "\"a;b,c\"");
    EXPECT_EQ(nxCSVFileReader::GetAsCSVColumn("b,c", ';'), "b,c");
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
        std::vector<Columns> rows(1 + random() % 4);
        std::string text;
        for (Columns& row : rows) {
            row.resize(2 + random() % 3); // a lone empty column would be an empty line
            for (std::string& column : row)
                column = randomText();
            for (std::size_t i = 0; i < row.size(); ++i)
                text.append(i == 0 ? 0 : 1, separator)
                    .append(nxCSVFileReader::GetAsCSVColumn(row[i], separator));
            text += random() % 2 == 0 ? "\n" : "\r\n";
        }
        nxCSVFileReader reader(separator, false, nullptr);
        ASSERT_EQ(reader.ReadString(text), nxErrorEnum::OK) << testing::PrintToString(text);
        ASSERT_EQ(RowsOf(reader), rows) << testing::PrintToString(text);
    }
}

TEST(nxCSVFileRowColumns, ReadAsTheEmptyTextWhereTheRowHasNone) {
    nxCSVFileRow row;
    row.AddColumn("a");
    EXPECT_EQ(row.GetColCount(), 1U);
    EXPECT_EQ(row.GetColValue(0), "a");
    EXPECT_EQ(row.GetColValue(1), "");
    row.Clear();
    EXPECT_EQ(row.GetColCount(), 0U);
}
