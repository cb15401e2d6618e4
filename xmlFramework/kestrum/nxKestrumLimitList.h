// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLLists.h"

namespace nxKestrumLimitList {
    // The limits of an algorithm or a job, as a field of both. The first limit that cannot be read is left
    // out and ends the list.
    template <class Limits, class Visitor>
    void Visit(Limits& limits, Visitor& field) {
        field("Limits", nxXMLFields::ListOf("Limit", limits));
    }
} // namespace nxKestrumLimitList
