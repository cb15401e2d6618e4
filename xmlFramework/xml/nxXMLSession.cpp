// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLSession.h"

#include "core/nxStringHelper.h"
#include "include/nxLogLevels.h"
#include "include/nxWriteLog.h"
#include "xmlFramework/xml/StrX.h"

#include <xercesc/dom/DOMImplementationRegistry.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxXMLDocument";

    nxXMLSession theSession; // made at load: the parser must not be initialised by two threads at once
} // namespace

nxXMLSession& nxXMLSession::Get() {
    return theSession;
}

nxXMLSession::nxXMLSession() {
    try {
        xercesc::XMLPlatformUtils::Initialize();
        _initialized = true;
        // Fills the registry of implementations while there is one thread.
        xercesc::DOMImplementationRegistry::getDOMImplementation(u"LS");
    } catch (const xercesc::XMLException& error) {
        nxWriteLog({nxLogLevels::Error, SourceFile}, "nxXMLSession - Error during initialization! :",
                   [&error] { return std::string(StrX(error.getMessage()).Get()); });
    }
}

nxXMLSession::~nxXMLSession() {
    if (_initialized)
        xercesc::XMLPlatformUtils::Terminate();
}

int nxXMLSession::NextBufferNumber() {
    return _bufferCount.fetch_add(1, std::memory_order_relaxed); // which wraps without overflow
}

std::string nxXMLSession::NextBufferName() {
    return "nxMemBufInputSource" + nxStringHelper::GetAsString(NextBufferNumber());
}
