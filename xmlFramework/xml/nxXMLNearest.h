// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string_view>

// Finds, among known names, the one that was probably meant by an unknown one.
class nxXMLNearest {
public:
    explicit nxXMLNearest(std::string_view name);

    // `known` must stay where it is.
    void Try(std::string_view known);
    // The nearest of those tried; the first of several; empty when none is near enough to be meant.
    std::string_view Get() const { return _nearest; }

private:
    std::string_view _name;
    std::string_view _nearest;
    std::size_t _best; // steps that are too many
};
