// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <iostream>

std::size_t tool::OutputWidth() {
    winsize size = {};
    const bool known = ::isatty(STDOUT_FILENO) == 1 && ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
    return known ? size.ws_col : 0;
}

tool::ProgressBar::ProgressBar(std::size_t total)
    : _total(total), _wanted(total > 1 && ::isatty(STDERR_FILENO) == 1) {}

void tool::ProgressBar::Hide() {
    if (!_visible)
        return;
    std::cerr << "\r\x1B[K" << std::flush; // to the left border, and erase from there
    _visible = false;
}

void tool::ProgressBar::Show(std::size_t done) {
    using namespace std::chrono_literals;
    if (!_wanted || done == _total)
        return;
    const auto now = std::chrono::steady_clock::now();
    if (now < _next)
        return;
    _next = now + 100ms;

    constexpr std::size_t Cells = 40;
    const std::size_t full = Cells * done / _total;
    std::cout << std::flush; // what stands there already comes first
    std::cerr << "\r[" << std::string(full, '#') << std::string(Cells - full, '.') << "] " << done << " of "
              << _total << std::flush;
    _visible = true;
}
