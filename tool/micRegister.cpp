// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/micRegister.h"

#include "core/nxCSVFileReader.h"
#include "core/nxStringHelper.h"
#include "xmlFramework/market/nxMICDefinitionList.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <algorithm>
#include <array>
#include <map>
#include <span>

namespace {
    using namespace tool;

    // What the register calls something, and what nxMICDefinition does.
    struct Translation {
        std::string_view published;
        std::string_view ours;
    };
    constexpr Translation Markers[] = {{"O", "O"}, {"OPRT", "O"}, {"S", "S"}, {"SGMT", "S"}};
    constexpr Translation Statuses[] = {{"ACTIVE", "ACTIVE"},
                                        {"MODIFIED", "ACTIVE"},
                                        {"UPDATED", "ACTIVE"},
                                        {"EXPIRED", "DELETED"},
                                        {"DELETED", "DELETED"}};

    struct Column {
        std::string_view heading;                       // in the older layout
        std::string_view newerHeading;                  // empty: the same, or none
        std::span<const Translation> translations = {}; // empty: the text stands as it is
    };
    constexpr unsigned int ColumnCount = nxMICDefinition::CSVColumnCount;
    enum : unsigned int { MIC, Country, Marker = 4, Status = 10 };
    // In the order of nxMICDefinition.
    constexpr std::array<Column, ColumnCount> Columns{{
        {"MIC", ""},
        {"COUNTRY", ""},
        {"ISO COUNTRY CODE (ISO 3166)", ""},
        {"OPERATING MIC", ""},
        {"O/S", "OPRT/SGMT", Markers},
        {"NAME-INSTITUTION DESCRIPTION", "MARKET NAME-INSTITUTION DESCRIPTION"},
        {"ACRONYM", ""},
        {"CITY", ""},
        {"WEBSITE", ""},
        {"STATUS DATE", "LAST UPDATE DATE"},
        {"STATUS", "", Statuses},
        {"CREATION DATE", ""},
        {"COMMENTS", ""},
    }};
    // The order in the older layout.
    constexpr std::array<unsigned int, ColumnCount> PublishedOrder{1, 2, 0, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};

    // Trimmed, with ASCII letters in upper case.
    std::string Normalised(std::string text) {
        nxStringHelper::LeftTrim(text);
        nxStringHelper::RightTrim(text);
        std::ranges::transform(text, text.begin(), [](char c) {
            return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        });
        return text;
    }

    bool IsASCIILetterOrDigit(char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    }

    // Where the columns of nxMICDefinition stand in a file.
    struct Layout {
        unsigned int columnCount = 0;
        std::array<std::optional<unsigned int>, ColumnCount> places;
        std::vector<std::string> headingsNotHeld;
        std::string problem;
    };

    void AddToList(std::string& list, const std::string& heading) {
        list.append(list.empty() ? "" : ", ").append(heading);
    }

    // The headings of columns that a register needs and this one has not.
    std::string FindMissing(const Layout& layout) {
        std::string missing;
        for (unsigned int i = 0; i < ColumnCount; ++i) {
            std::string heading(Columns[i].heading);
            if (!Columns[i].newerHeading.empty())
                heading.append(" or ").append(Columns[i].newerHeading);
            if (!layout.places[i] && i != Country)
                AddToList(missing, heading);
        }
        return missing;
    }

    std::string FindHeadings(const nxCSVFileRow& header) {
        constexpr std::size_t Longest = 1000; // any file may have been taken for a register
        std::string found;
        for (unsigned int i = 0; i < header.GetColCount() && found.size() < Longest; ++i)
            AddToList(found, "'" + header.GetColValue(i) + "'");
        if (found.size() >= Longest)
            return nxStringHelper::GetShortened(found, Longest);
        return found.empty() ? "none" : found;
    }

    // Why a text that has not the headings of a register may be one all the same; nothing when it is
    // unlikely.
    std::string GuessReason(std::string_view csv) {
        const std::string_view line = csv.substr(0, csv.find_first_of("\r\n"));
        if (line.starts_with("\xFF\xFE") || line.starts_with("\xFE\xFF") ||
            line.find('\0') != std::string_view::npos)
            return "its encoding seems to be UTF-16, which is not read; ";
        for (const char separator : {';', '\t', '|'}) {
            if (std::ranges::count(line, separator) > std::ranges::count(line, ','))
                return std::string("its columns seem to be separated by '") + separator +
                       "' instead of ','; ";
        }
        return {};
    }

    Layout FindLayout(const nxCSVFileRow& header, std::string_view csv) {
        Layout layout;
        layout.columnCount = header.GetColCount();
        for (unsigned int place = 0; place < layout.columnCount; ++place) {
            const std::string heading = Normalised(header.GetColValue(place));
            const auto* const column = std::ranges::find_if(Columns, [&heading](const Column& candidate) {
                return !heading.empty() &&
                       (heading == candidate.heading || heading == candidate.newerHeading);
            });
            if (column == Columns.end()) {
                layout.headingsNotHeld.push_back(header.GetColValue(place));
                continue;
            }
            auto& found = layout.places[static_cast<std::size_t>(column - Columns.begin())];
            if (found)
                layout.problem = "two columns for " + std::string(column->heading);
            found = place;
        }

        if (const std::string missing = FindMissing(layout); !missing.empty())
            layout.problem = "no register of market identifier codes: " + GuessReason(csv) +
                             "the header row lacks " + missing + "; it has " + FindHeadings(header);
        return layout;
    }

    // The library knows what XML can carry.
    class XMLCheck {
    public:
        XMLCheck() {
            if (_document.CreateDocument("Text").IsOK())
                _element = _document.GetRootElement();
        }
        bool CanCarry(const std::string& text) { return _element.SetValue(text).IsOK(); }

    private:
        nxXMLDocument _document;
        nxXMLElement _element;
    };

    // Makes rows of nxMICDefinition out of rows of the register.
    class RowTranslator {
    public:
        RowTranslator(const Layout& layout, TextEncoding encoding)
            : _layout(layout), _encoding(encoding), _decoder(encoding) {}

        void Translate(const nxCSVFileReader::Row& row, MICRegister& into) {
            MICRegister::Row translated{{}, row.line};
            const std::string reason = Translate(row, translated.columns);
            if (reason.empty())
                into.rows.push_back(std::move(translated));
            else
                into.unusableRows.push_back({row.line, reason, MICOf(row.columns)});
        }

    private:
        // Why the row cannot be used; nothing when it can.
        std::string Translate(const nxCSVFileReader::Row& row, nxCSVFileRow& translated) {
            if (row.columns.GetColCount() != _layout.columnCount)
                return nxStringHelper::GetAsString(row.columns.GetColCount()) + " columns instead of " +
                       nxStringHelper::GetAsString(_layout.columnCount);
            for (unsigned int i = 0; i < ColumnCount; ++i) {
                std::string text = _layout.places[i] ? row.columns.GetColValue(*_layout.places[i]) : "";
                if (std::string reason = Translate(Columns[i], text); !reason.empty())
                    return reason;
                translated.AddColumn(text);
            }
            return TakeMIC(translated.GetColValue(MIC), row.line);
        }

        std::string Translate(const Column& column, std::string& text) {
            const std::string heading(column.heading);
            const std::optional<std::string> decoded = _decoder.Decode(text);
            if (!decoded)
                return heading + " is no " + std::string(GetName(_encoding)) + " text";
            if (!_check.CanCarry(*decoded))
                return heading + " holds a character that XML cannot carry";
            text = *decoded;
            if (column.translations.empty() || text.empty())
                return {};

            const auto translation =
                std::ranges::find(column.translations, Normalised(text), &Translation::published);
            if (translation == column.translations.end())
                return heading + " is unknown: '" + text + "'";
            text = translation->ours;
            return {};
        }

        std::string TakeMIC(const std::string& mic, unsigned int line) {
            if (mic.empty())
                return "no MIC";
            if (!std::ranges::all_of(mic, IsASCIILetterOrDigit))
                return "'" + mic + "' is no MIC: it has other characters than letters and digits";
            const auto [first, isNew] = _lines.try_emplace(mic, line);
            if (!isNew)
                return "MIC " + mic + " stands on line " + nxStringHelper::GetAsString(first->second) +
                       " already";
            return {};
        }

        std::string MICOf(const nxCSVFileRow& row) const {
            return row.GetColCount() == _layout.columnCount ? row.GetColValue(*_layout.places[MIC])
                                                            : std::string();
        }

        const Layout& _layout;
        TextEncoding _encoding;
        TextDecoder _decoder;
        XMLCheck _check;
        std::map<std::string, unsigned int> _lines; // by MIC
    };

    std::string AsLine(const std::array<std::string, ColumnCount>& texts) {
        std::string line = texts.front();
        for (const std::string& text : std::span(texts).subspan(1))
            line.append(",").append(text);
        return line + "\r\n";
    }
} // namespace

MICRegister tool::ReadMICRegister(std::string_view csv, std::optional<TextEncoding> encoding) {
    MICRegister result;
    result.encoding = encoding ? *encoding : DetectEncoding(csv);

    nxCSVFileReader reader(',', true, nullptr);
    static_cast<void>(reader.ReadString(csv)); // what it could not use stands in the result, line by line
    for (const unsigned int line : reader.GetUnusableLines())
        result.unusableRows.push_back({line, "the quotes do not match", {}});

    const Layout layout = FindLayout(reader.GetHeader(), csv);
    result.problem = layout.problem;
    result.headingsNotHeld = layout.headingsNotHeld;
    result.hasCountry = layout.places[Country].has_value();
    if (!result.problem.empty())
        return result;

    RowTranslator translator(layout, result.encoding);
    for (const nxCSVFileReader::Row& row : reader.GetRows())
        translator.Translate(row, result);
    return result;
}

std::string tool::FindMissingValue(const MICRegister::Row& row) {
    for (const unsigned int column : {Marker, Status}) {
        if (row.columns.GetColValue(column).empty())
            return "no " + std::string(Columns[column].heading);
    }
    return {};
}

std::string tool::WriteMICRegister(const nxMICDefinitionList& list) {
    std::array<std::string, ColumnCount> texts;
    std::ranges::transform(PublishedOrder, texts.begin(), [](unsigned int i) { return Columns[i].heading; });
    std::string csv = AsLine(texts);
    for (const auto& [mic, definition] : list.GetMICDefinitions()) {
        nxCSVFileRow row;
        definition->ConvertToCSV(row);
        std::ranges::transform(PublishedOrder, texts.begin(),
                               [&row](unsigned int i) { return row.GetColValue(i); });
        csv += AsLine(texts);
    }
    return csv;
}
