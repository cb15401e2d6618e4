// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <atomic>
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

    // The number of the next in-memory buffer, from 0 on, and its name: "nxMemBufInputSource0". From any
    // thread.
    int NextBufferNumber();
    std::string NextBufferName();

private:
    std::atomic<int> _bufferCount = 0;
    bool _initialized = false;
};
