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

#include <atomic>
#include <limits>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxXMLDocument";

    // Threads may come when static objects are gone: these are never destroyed.
    constinit std::atomic<int> bufferCount = 0;
    constinit std::atomic<int> users = 0;
    constexpr int Terminated = std::numeric_limits<int>::min(); // instead of a number of users

    bool Join() {
        int count = users.load();
        while (count != Terminated) {
            if (users.compare_exchange_weak(count, count + 1))
                return true;
        }
        return false;
    }

    const nxXMLSession theSession; // made at load: the parser must not be initialised by two threads at once
} // namespace

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
    int none = 0;
    if (_initialized && users.compare_exchange_strong(none, Terminated))
        xercesc::XMLPlatformUtils::Terminate();
}

nxXMLSession::Use::Use() : _isGranted(Join()) {}

nxXMLSession::Use::~Use() {
    if (_isGranted)
        users.fetch_sub(1);
}

int nxXMLSession::NextBufferNumber() {
    return bufferCount.fetch_add(1, std::memory_order_relaxed); // which wraps without overflow
}

std::string nxXMLSession::NextBufferName() {
    return "nxMemBufInputSource" + nxStringHelper::GetAsString(NextBufferNumber());
}
