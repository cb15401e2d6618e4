// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <exception>
#include <future>
#include <system_error>
#include <thread>
#include <type_traits>
#include <vector>

namespace tool {
    // Calls work(i) for each number below `count`, in `threads` threads at once, and here take(result), in
    // the order of the numbers, each as soon as it is there. What either throws is thrown here. Where not as
    // many threads can be started, fewer do it.
    template <class Work, class Take>
    void WorkInOrder(std::size_t count, std::size_t threads, const Work& work, const Take& take) {
        threads = std::min(threads, count);
        if (threads < 2) {
            for (std::size_t i = 0; i < count; ++i)
                take(work(i));
            return;
        }

        // They are done in blocks, since waking up this thread for each costs as much as a small one.
        using Result = std::invoke_result_t<Work, std::size_t>;
        const std::size_t blockSize = std::clamp<std::size_t>(count / threads / 8, 1, 32);
        const std::size_t blockCount = (count + blockSize - 1) / blockSize;
        std::vector<std::promise<std::vector<Result>>> blocks(blockCount);
        std::atomic<std::size_t> next = 0;
        const auto run = [&] {
            for (std::size_t block; (block = next++) < blockCount;) {
                try {
                    std::vector<Result> results;
                    const std::size_t end = std::min(count, (block + 1) * blockSize);
                    for (std::size_t i = block * blockSize; i < end; ++i)
                        results.push_back(work(i));
                    blocks[block].set_value(std::move(results));
                } catch (...) {
                    blocks[block].set_exception(std::current_exception());
                }
            }
        };
        // The threads end before what they work on, and early when something is thrown here.
        struct Threads {
            explicit Threads(std::atomic<std::size_t>& number, std::size_t end)
                : _number(number), _end(end) {}
            Threads(const Threads&) = delete;
            Threads& operator=(const Threads&) = delete;
            ~Threads() {
                _number = _end;
                for (std::thread& thread : _threads)
                    thread.join();
            }
            std::vector<std::thread> _threads;
            std::atomic<std::size_t>& _number;
            std::size_t _end;
        };
        Threads running(next, blockCount);
        try {
            for (std::size_t i = 0; i < threads; ++i)
                running._threads.emplace_back(run);
        } catch (const std::system_error&) { // the system allows no more
            if (running._threads.empty())
                run();
        }
        for (auto& block : blocks) {
            for (const Result& result : block.get_future().get())
                take(result);
        }
    }
} // namespace tool
