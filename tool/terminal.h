// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace tool {
    // The columns of the terminal on standard output; 0 when there is none.
    std::size_t OutputWidth();

    // A bar on standard error, where that is a terminal and the work turns out to take longer than a second.
    // It is painted at most ten times a second, however often it is shown.
    class ProgressBar {
    public:
        explicit ProgressBar(std::size_t total);
        ~ProgressBar() { Hide(); }
        ProgressBar(const ProgressBar&) = delete;
        ProgressBar& operator=(const ProgressBar&) = delete;

        // To be called before anything else is written.
        void Hide();
        void Show(std::size_t done);

    private:
        std::size_t _total;
        bool _wanted;
        bool _visible = false;
        std::chrono::steady_clock::time_point _next = // that it is painted
            std::chrono::steady_clock::now() + std::chrono::seconds(1);
    };
} // namespace tool
