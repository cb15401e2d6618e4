// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// How the library's time grows with the number of a list's items, and what memory it takes meanwhile.
//
//   growth LIST ROUNDS   prints a line a figure:
//
//   time read|write LIST TIMES RATIO   processor time for a document of TIMES as many items against that for
//                                      the usual one; a line a round
//   memory WHAT LIST BYTES             of the usual document: the most that was allocated at once beyond what
//                                      was there before and the text written, or the records read
//
// Reading is from text to records, and their release; what is written takes the place of the same text,
// written before. Both sizes have the same number of items to do in a round.

#include "bench/documents.h"
#include "xmlFramework/market/nxBrokerMap.h"
#include "xmlFramework/market/nxExchangeDefinitionList.h"
#include "xmlFramework/market/nxMICDefinitionList.h"
#include "xmlFramework/market/nxTradingHoursSchemeList.h"

#include <malloc.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <iterator>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace {
    // ---- Memory

    // Of one thread. Blocks count with the size that the allocator gave them.
    std::int64_t allocated = 0;
    std::int64_t mostAllocated = 0;

    void* Allocate(std::size_t size) {
        void* const block = std::malloc(size);
        if (block == nullptr)
            throw std::bad_alloc();
        allocated += static_cast<std::int64_t>(malloc_usable_size(block));
        mostAllocated = std::max(mostAllocated, allocated);
        return block;
    }

    void Release(void* block) noexcept {
        allocated -= static_cast<std::int64_t>(malloc_usable_size(block));
        std::free(block);
    }

    // What `work` takes at most beyond what was allocated before, and what it leaves of that.
    struct Taken {
        std::int64_t most;
        std::int64_t left;
    };

    template <class Work>
    Taken MemoryOf(Work work) {
        const std::int64_t before = mostAllocated = allocated;
        work();
        return {mostAllocated - before, allocated - before};
    }

    // ---- Work

    void Check(const nxErrorEnum& result) {
        if (!result.IsOK())
            throw std::runtime_error(result.GetAsString());
    }

    template <class List>
    void Read(const std::string& text) {
        List list;
        Check(list.ConvertFromXML(text, ""));
    }

    template <class Work>
    double Seconds(int count, Work work) {
        const std::clock_t start = std::clock();
        for (int i = 0; i < count; ++i)
            work();
        return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    }

    // A document of so many times the usual size, and its records.
    template <class List, auto MakeSample>
    struct Input {
        explicit Input(int times) : text(MakeSample(static_cast<std::size_t>(times)).text) {
            Check(list.ConvertFromXML(text, ""));
            for (int i = 0; i < 2; ++i) // the second time, it gets the memory that it keeps
                Check(list.ConvertToXML(written, ""));
            if (written != text)
                throw std::runtime_error("what is written is not what was read");
        }

        std::string text;
        List list;
        std::string written;
    };

    template <class List, auto MakeSample>
    void MeasureMemory(const char* name, Input<List, MakeSample>& input) {
        const auto print = [name](const char* what, std::int64_t bytes) {
            std::printf("memory %s %s %lld\n", what, name, static_cast<long long>(bytes));
        };
        const auto size = static_cast<std::int64_t>(input.text.size());

        std::string written;
        const auto write = [&] { Check(input.list.ConvertToXML(written, "")); };
        print("write", MemoryOf(write).most - size);
        const auto place = static_cast<std::int64_t>(malloc_usable_size(written.data()));
        print("rewrite", place + MemoryOf(write).most - size);

        List list;
        const Taken reading = MemoryOf([&] { Check(list.ConvertFromXML(input.text, "")); });
        print("read", reading.most - reading.left);
        print("records", reading.left);
    }

    template <class List, auto MakeSample>
    void MeasureTime(const char* name, Input<List, MakeSample>& once, int times, int rounds) {
        Input<List, MakeSample> larger(times);
        const auto print = [&](const char* operation, double seconds, double onceSeconds) {
            std::printf("time %s %s %d %.3f\n", operation, name, times, seconds / onceSeconds * times);
        };
        for (int round = 0; round < rounds; ++round) {
            const double readOnce = Seconds(times, [&] { Read<List>(once.text); });
            print("read", Seconds(1, [&] { Read<List>(larger.text); }), readOnce);
            const double writeOnce = Seconds(times, [&] { Check(once.list.ConvertToXML(once.written, "")); });
            print("write", Seconds(1, [&] { Check(larger.list.ConvertToXML(larger.written, "")); }),
                  writeOnce);
        }
    }

    template <class List, auto MakeSample>
    void Measure(const char* name, int rounds) {
        Input<List, MakeSample> once(1);
        MeasureMemory(name, once);
        for (const int times : {10, 100})
            MeasureTime(name, once, times, rounds);
    }
} // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void operator delete(void* block) noexcept {
    Release(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
    Release(block);
}

int main(int argc, char** argv) {
    struct Kind {
        std::string_view name;
        void (*measure)(const char* name, int rounds);
    };
    constexpr Kind Kinds[] = {
        {"mics", Measure<nxMICDefinitionList, bench::MakeMics>},
        {"exchanges", Measure<nxExchangeDefinitionList, bench::MakeExchanges>},
        {"hours", Measure<nxTradingHoursSchemeList, bench::MakeHours>},
        {"brokers", Measure<nxBrokerMap, bench::MakeBrokers>},
    };
    try {
        const auto* const kind = argc == 3 ? std::ranges::find(Kinds, argv[1], &Kind::name) : std::end(Kinds);
        if (kind == std::end(Kinds))
            throw std::runtime_error("a list and a number of rounds are wanted");
        kind->measure(argv[1], std::atoi(argv[2]));
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "growth: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
