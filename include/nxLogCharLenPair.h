// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

// Text that is not terminated: a pointer to its first character, not owned, and its length.
class nxLogCharLenPair {
public:
    constexpr nxLogCharLenPair(const char* buffer, unsigned long long length)
        : _buffer(buffer), _length(length) {}

    constexpr const char* GetUnterminatedCharBuffer() const { return _buffer; }
    constexpr unsigned long long GetLength() const { return _length; }

private:
    nxLogCharLenPair() = default;

    const char* _buffer = nullptr;
    unsigned long long _length = 0;
};
