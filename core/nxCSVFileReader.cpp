// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxCSVFileReader.h"

#include "core/nxFileHelper.h"

#include <csv.h>

#include <new>
#include <utility>

namespace {
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

    // Cuts the text into lines, each with its line end; a line is read one at a time so that rows know
    // theirs.
    class Lines {
    public:
        explicit Lines(std::string_view text) : _text(text) {}

        bool AtEnd() const { return _position == _text.size(); }
        unsigned int GetNumber() const { return _number; } // of the line that Next gave last
        std::string_view Next() {
            const std::size_t end = _text.find('\n', _position);
            const std::size_t length = end == std::string_view::npos ? end : end + 1 - _position;
            const std::string_view line = _text.substr(_position, length);
            _position += line.size();
            ++_number;
            return line;
        }

    private:
        std::string_view _text;
        std::size_t _position = 0;
        unsigned int _number = 0;
    };

    std::string WithoutLineEnd(std::string_view line) {
        if (line.ends_with('\n'))
            line.remove_suffix(1);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        return std::string(line);
    }

    // libcsv, fed line by line.
    class RowParser {
    public:
        explicit RowParser(char separator) : _separator(separator) { Start(); }
        ~RowParser() { csv_free(&_parser); }
        RowParser(const RowParser&) = delete;
        RowParser& operator=(const RowParser&) = delete;

        // False when the line breaks the rules of quoting; call Restart then.
        bool Feed(std::string_view line) {
            return csv_parse(&_parser, line.data(), line.size(), OnColumn, OnRow, this) == line.size();
        }
        // Ends the input. False when a quote is still open.
        bool Finish() { return csv_fini(&_parser, OnColumn, OnRow, this) == 0; }
        void Restart() {
            csv_free(&_parser);
            _columns.Clear();
            Start();
        }

        // True while a quote is open, and after a last line without line end.
        bool IsInsideRow() const { return _parser.pstate != RowNotBegun; }
        std::vector<nxCSVFileRow> TakeRows() { return std::exchange(_rows, {}); }

    private:
        static constexpr int RowNotBegun = 0; // libcsv's first parser state

        void Start() {
            if (csv_init(&_parser, CSV_STRICT | CSV_STRICT_FINI) != 0)
                throw std::bad_alloc();
            csv_set_delim(&_parser, static_cast<unsigned char>(_separator));
            // Blanks belong to the text: libcsv would strip them.
            csv_set_space_func(&_parser, [](unsigned char) { return 0; });
        }
        static void OnColumn(void* text, std::size_t length, void* self) {
            static_cast<RowParser*>(self)->_columns.AddColumn(
                std::string(static_cast<const char*>(text), length));
        }
        static void OnRow(int /*terminator*/, void* self) {
            auto& parser = *static_cast<RowParser*>(self);
            parser._rows.push_back(std::exchange(parser._columns, {}));
        }

        csv_parser _parser{};
        char _separator;
        nxCSVFileRow _columns;           // of the row begun
        std::vector<nxCSVFileRow> _rows; // ended
    };

    struct Result {
        std::vector<nxCSVFileReader::Row> rows;
        std::vector<unsigned int> unusableLines;

        bool IsFirstRowUsable() const {
            return !rows.empty() && (unusableLines.empty() || rows.front().line < unusableLines.front());
        }
    };

    // Reads one row, of one line or several. Behind a broken row the reading goes on with its second line, so
    // that a stray quote costs one row and not the rest of the input.
    void ReadRow(Lines& lines, RowParser& parser, nxCSVFileReaderCallback& callback, Result& result) {
        std::string_view line = lines.Next();
        const unsigned int number = lines.GetNumber();
        if (callback.IsCommentRow(WithoutLineEnd(line)))
            return;

        const Lines afterFirstLine = lines;
        bool sound = parser.Feed(line);
        while (sound && parser.IsInsideRow() && !lines.AtEnd())
            sound = parser.Feed(lines.Next());
        if (sound && parser.IsInsideRow())
            sound = parser.Finish();
        if (!sound) {
            parser.Restart();
            parser.TakeRows();
            result.unusableLines.push_back(number);
            lines = afterFirstLine;
            return;
        }
        for (nxCSVFileRow& row : parser.TakeRows())
            result.rows.push_back({std::move(row), number});
    }
} // namespace

nxCSVFileReader::nxCSVFileReader(char separator, bool hasHeaderRow, nxCSVFileReaderCallback* callback)
    : _separator(separator), _hasHeaderRow(hasHeaderRow), _callback(callback) {}

nxErrorEnum nxCSVFileReader::ReadFile(const std::string& path) {
    std::string text;
    std::string problem;
    const nxErrorEnum result = nxFileHelper::Read(path, text, problem);
    if (!result.IsOK())
        return result;
    return ReadString(text);
}

nxErrorEnum nxCSVFileReader::ReadString(std::string_view text) {
    if (text.starts_with(ByteOrderMark))
        text.remove_prefix(ByteOrderMark.size());

    nxCSVFileReaderCallback noComments;
    nxCSVFileReaderCallback& callback = _callback ? *_callback : noComments;
    Result result;
    RowParser parser(_separator);
    for (Lines lines(text); !lines.AtEnd();)
        ReadRow(lines, parser, callback, result);

    _header.Clear();
    if (_hasHeaderRow && result.IsFirstRowUsable()) {
        _header = std::move(result.rows.front().columns);
        result.rows.erase(result.rows.begin());
    }
    _rows = std::move(result.rows);
    _unusableLines = std::move(result.unusableLines);
    return _unusableLines.empty() ? nxErrorEnum::OK : nxErrorEnum::InputNotUsable;
}

std::string nxCSVFileReader::GetAsCSVColumn(std::string_view text, char separator) {
    // A byte-order mark at the start of a file is no text unless a quote stands before it.
    const bool needsQuotes = text.find_first_of("\"\r\n") != std::string_view::npos ||
                             text.find(separator) != std::string_view::npos ||
                             text.starts_with(ByteOrderMark);
    if (!needsQuotes)
        return std::string(text);

    std::string column(csv_write(nullptr, 0, text.data(), text.size()), '\0');
    csv_write(column.data(), column.size(), text.data(), text.size());
    return column;
}
