// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <exception>
#include <future>
#include <thread>
#include <type_traits>
#include <vector>

namespace tool {
    // Calls work(i) for each number below `count`, in `threads` threads at once, and here take(result), in
    // the order of the numbers, each as soon as it is there. What either throws is thrown here.
    template <class Work, class Take>
    void WorkInOrder(std::size_t count, std::size_t threads, const Work& work, const Take& take) {
        threads = std::min(threads, count);
        if (threads < 2) {
            for (std::size_t i = 0; i < count; ++i)
                take(work(i));
            return;
        }

        using Result = std::invoke_result_t<Work, std::size_t>;
        std::vector<std::promise<Result>> results(count);
        std::atomic<std::size_t> next = 0;
        const auto run = [&] {
            for (std::size_t i; (i = next++) < count;) {
                try {
                    results[i].set_value(work(i));
                } catch (...) {
                    results[i].set_exception(std::current_exception());
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
        Threads running(next, count);
        for (std::size_t i = 0; i < threads; ++i)
            running._threads.emplace_back(run);
        for (std::promise<Result>& result : results)
            take(result.get_future().get());
    }
} // namespace tool
