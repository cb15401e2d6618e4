// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <latch>
#include <thread>
#include <vector>

// Calls work(thread, round) for every round in each of the threads, which begin at once, and waits for them.
template <class Work>
void nxInThreads(int threadCount, int roundCount, const Work& work) {
    std::latch start(threadCount);
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < threadCount; ++thread)
        threads.emplace_back([&start, &work, thread, roundCount] {
            start.arrive_and_wait();
            for (int round = 0; round < roundCount; ++round)
                work(thread, round);
        });
}
