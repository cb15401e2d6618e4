// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxDOMErrorHandler.h"

#include "include/nxLogLevels.h"
#include "include/nxWriteLog.h"
#include "xmlFramework/xml/StrX.h"
#include "xmlFramework/xml/nxXMLReport.h"

#include <xercesc/dom/DOMError.hpp>
#include <xercesc/dom/DOMLocator.hpp>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxXMLDocument";

    const char* Heading(const xercesc::DOMError& error) {
        switch (error.getSeverity()) {
        case xercesc::DOMError::DOM_SEVERITY_WARNING:
            return "DOM Warning";
        case xercesc::DOMError::DOM_SEVERITY_ERROR:
            return "DOM Error";
        default:
            return "DOM Fatal Error";
        }
    }

    void Report(const xercesc::DOMError& error) {
        nxXMLReport* const report = nxXMLReport::GetListening();
        if (!report)
            return;
        const xercesc::DOMLocator* const place = error.getLocation();
        report->AddNotWellFormed(place ? static_cast<std::size_t>(place->getLineNumber()) : 0,
                                 place ? static_cast<std::size_t>(place->getColumnNumber()) : 0,
                                 StrX(error.getMessage()).Get());
    }
} // namespace

bool nxDOMErrorHandler::handleError(const xercesc::DOMError& error) {
    Remember();
    Report(error);

    const auto describe = [&error] {
        const xercesc::DOMLocator* const place = error.getLocation();
        const auto number = [](XMLFileLoc location) { return std::to_string(location); };
        return std::string(Heading(error)) + ". URI: " + StrX(place ? place->getURI() : nullptr).Get() +
               ", Line: " + number(place ? place->getLineNumber() : 0) +
               ", Column: " + number(place ? place->getColumnNumber() : 0) +
               ". Message: " + StrX(error.getMessage()).Get();
    };
    nxWriteLog({nxLogLevels::Error, SourceFile}, describe);
    return true;
}
