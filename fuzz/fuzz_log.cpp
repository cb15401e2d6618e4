// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// A text that is logged, or shown by the tool. Whatever it is, a line comes out that does nothing to a
// terminal but appear on it; a text that does nothing else stands there as it is. ICU is the judge.

#include "fuzz/nxFuzz.h"
#include "include/nxConsoleLogDevice.h"
#include "include/nxLog.h"
#include "include/nxLogLevels.h"
#include "tool/printable.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace {
    using nxFuzz::Require;

    bool DoesMoreThanAppear(UChar32 character) {
        const auto type = u_charType(character);
        return type == U_CONTROL_CHAR || type == U_LINE_SEPARATOR || type == U_PARAGRAPH_SEPARATOR ||
               u_hasBinaryProperty(character, UCHAR_BIDI_CONTROL) != 0;
    }

    bool IsPrintable(std::string_view text) {
        for (std::size_t at = 0; at < text.size();) {
            UChar32 character = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion" // within ICU's own macro
            U8_NEXT(text, at, text.size(), character);
#pragma GCC diagnostic pop
            if (character < 0 || DoesMoreThanAppear(character))
                return false;
        }
        return true;
    }

    // A console log device that writes to memory: it takes what is standard error when it is made.
    class Console {
    public:
        Console() : _stream(open_memstream(&_text, &_size)) {
            std::swap(stderr, _stream);
            _device = std::make_unique<nxConsoleLogDevice>();
            std::swap(stderr, _stream);
        }
        ~Console() {
            _device.reset();
            std::fclose(_stream);
            std::free(_text); // NOLINT(cppcoreguidelines-no-malloc): as open_memstream asks
        }
        Console(const Console&) = delete;
        Console& operator=(const Console&) = delete;

        std::string_view Print(const std::string& text) {
            std::rewind(_stream);
            nxLog log(nxLogLevels::Error, "file", 1);
            log << text;
            _device->Write(log);
            std::fflush(_stream);
            return {_text, static_cast<std::size_t>(std::ftell(_stream))}; // what was longer stays behind it
        }

    private:
        char* _text = nullptr;
        std::size_t _size = 0;
        std::FILE* _stream;
        std::unique_ptr<nxConsoleLogDevice> _device;
    };

    void CheckConsole(const std::string& text) {
        static Console console;
        std::string_view line = console.Print(text);
        Require(line.ends_with('\n'));
        line.remove_suffix(1);
        Require(IsPrintable(line));

        // Time, level and place.
        for (int i = 0; i < 3; ++i)
            line.remove_prefix(line.find(' ') + 1);
        Require(line.size() >= text.size() && (line == text) == IsPrintable(text));
    }

    void CheckTool(const std::string& text) {
        const std::string line = tool::Printable(text);
        Require(IsPrintable(line) && (line == text) == IsPrintable(text) && tool::Printable(line) == line);
        const std::size_t columns = tool::CountColumns(line);
        Require(tool::FirstColumns(line, columns) == line);
        Require(tool::CountColumns(tool::FirstColumns(line, columns / 2)) <= columns / 2);
    }
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    CheckConsole(text);
    CheckTool(text);
    return 0;
}
