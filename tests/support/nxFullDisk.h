// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <sys/resource.h>

#include <csignal>

// While it lives, this process can write no file of more than `bytes` bytes, as if the disk were full.
class nxFullDisk {
public:
    explicit nxFullDisk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &_before);
        const rlimit limit{bytes, _before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~nxFullDisk() {
        setrlimit(RLIMIT_FSIZE, &_before);
        std::signal(SIGXFSZ, _handlerBefore);
    }
    nxFullDisk(const nxFullDisk&) = delete;
    nxFullDisk& operator=(const nxFullDisk&) = delete;

private:
    rlimit _before{};
    void (*_handlerBefore)(int) = std::signal(SIGXFSZ, SIG_IGN);
};
