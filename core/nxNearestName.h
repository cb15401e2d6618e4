// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"

#include <cstddef>
#include <string_view>

// Finds, among known names, the one that was probably meant by an unknown one, in whatever letter case of
// ASCII letters. Belongs to one thread at a time.
class NXCORE_API nxNearestName {
public:
    // `name` must stay where it is.
    explicit nxNearestName(std::string_view name);

    // `known` must stay where it is.
    void Try(std::string_view known);
    // The nearest of those tried; the first of several; empty when none is near enough to be meant.
    std::string_view Get() const { return _nearest; }

private:
    std::string_view _name;
    std::string_view _nearest;
    std::size_t _best; // steps that are too many
};
