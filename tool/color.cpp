// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/color.h"

#include <unistd.h>

#include <cstdlib>

namespace {
    using namespace tool;

    constexpr char Auto[] = "auto";
    constexpr char Always[] = "always";
    constexpr char Never[] = "never";

    std::string& Choice() {
        static std::string choice(Auto);
        return choice;
    }

    std::string_view Environment(const char* name) {
        const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): there is one thread
        return value ? value : "";
    }

    bool IsWanted(Stream stream) {
        if (Choice() != Auto)
            return Choice() == Always;
        return ::isatty(stream == Stream::Output ? STDOUT_FILENO : STDERR_FILENO) == 1 &&
               Environment("NO_COLOR").empty() && Environment("TERM") != "dumb";
    }

    std::string_view Code(Color color) {
        switch (color) {
        case Color::Plain:
            return {};
        case Color::Red:
            return "31";
        case Color::Green:
            return "32";
        case Color::Yellow:
            return "33";
        case Color::Bold:
            return "1";
        }
        return {};
    }
} // namespace

const std::vector<std::string>& tool::ColorChoices() {
    static const std::vector<std::string> choices{Auto, Always, Never};
    return choices;
}

void tool::ChooseColor(std::string_view choice) {
    Choice() = choice;
}

std::string tool::Paint(Color color, std::string_view text, Stream stream) {
    if (text.empty() || color == Color::Plain || !IsWanted(stream))
        return std::string(text);
    return std::string("\x1B[").append(Code(color)).append("m").append(text).append("\x1B[0m");
}
