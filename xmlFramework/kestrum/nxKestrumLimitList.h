// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxOwnedItems.h"
#include "xmlFramework/kestrum/nxKestrumLimit.h"

// The limits of an algorithm or a job in their document: a list "Limits" of items "Limit". Private to the
// library.
namespace nxKestrumLimitList {
    // Adds to the limits held. The first limit that cannot be read is left out and ends the list; its failure
    // is returned.
    nxErrorEnum Read(const nxXMLElement& root, nxOwnedItems<nxKestrumLimit>& limits);
    nxErrorEnum Write(nxXMLElement& root, const nxOwnedItems<nxKestrumLimit>& limits);
} // namespace nxKestrumLimitList
