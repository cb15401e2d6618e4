// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>

// The parser library's time in the process: initialised when this library is loaded, terminated when it is
// unloaded or the process ends, unless a document is still there then, such as that of a thread which goes
// on.
class nxXMLSession {
public:
    nxXMLSession();
    ~nxXMLSession();
    nxXMLSession(const nxXMLSession&) = delete;
    nxXMLSession& operator=(const nxXMLSession&) = delete;

    // Keeps the parser from being terminated. From any thread.
    class Use {
    public:
        Use();
        ~Use();
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

        // Not when the parser has been terminated already: nothing of it may be touched then.
        bool IsGranted() const { return _isGranted; }

    private:
        const bool _isGranted;
    };

    // The number of the next in-memory buffer, from 0 on, and its name: "nxMemBufInputSource0". From any
    // thread.
    static int NextBufferNumber();
    static std::string NextBufferName();

private:
    bool _initialized = false;
};
