// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxMutex.h"

#include <string>

// The parser library's time in the process: initialised when this library is loaded, terminated when it is
// unloaded. No document may outlive it.
class nxXMLSession {
public:
    nxXMLSession();
    ~nxXMLSession();
    nxXMLSession(const nxXMLSession&) = delete;
    nxXMLSession& operator=(const nxXMLSession&) = delete;

    // The session of the process.
    static nxXMLSession& Get();

    // The name of the next in-memory buffer: "nxMemBufInputSource0", then 1 and so on. From any thread.
    std::string NextBufferName();

private:
    nxMutex _mutex; // guards the counter
    int _bufferCount = 0;
    bool _initialized = false;
};
