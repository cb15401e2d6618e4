// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"

#include <xercesc/dom/DOMErrorHandler.hpp>

// Logs every problem that the parser or the serialiser reports, and remembers that there was one.
class nxDOMErrorHandler final : public xercesc::DOMErrorHandler {
public:
    // Always true: go on, so that later problems are reported too.
    bool handleError(const xercesc::DOMError& error) override;

    // As after a report.
    void Remember() { _stickyError = nxErrorEnum::XMLParseFailed; }

    // nxErrorEnum::XMLParseFailed once anything, be it a warning, was reported; never cleared.
    const nxErrorEnum& GetStickyError() const { return _stickyError; }

private:
    nxErrorEnum _stickyError;
};
