// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <xercesc/util/OutOfMemoryException.hpp>

#include <new>

namespace nxXMLMemory {
    // The result of the operation, which works with the parser library. That library has a sign of its own
    // for exhausted memory, of which nobody outside knows: std::bad_alloc leaves in its place.
    template <class Operation>
    decltype(auto) Guarded(const Operation& operation) {
        try {
            return operation();
        } catch (const xercesc::OutOfMemoryException&) {
            throw std::bad_alloc();
        }
    }
} // namespace nxXMLMemory
