// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "bench/job.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <stdexcept>

namespace {
    using bench::Job;

    // A large document and a small one.
    constexpr const char* InParallel[] = {"mics", "spread"};

    // FNV-1a, 64 bits.
    std::string Digest(const std::string& bytes) {
        std::uint64_t hash = 0xcbf29ce484222325U;
        for (const char byte : bytes)
            hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
        char text[17];
        std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
        return text;
    }

    const Job& FindJob(const std::vector<Job>& jobs, const std::string& name) {
        for (const Job& job : jobs)
            if (job.name == name)
                return job;
        throw std::runtime_error("no job is named " + name);
    }

    std::string FileContents(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        if (!file)
            throw std::runtime_error("cannot read " + path);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    void WriteFile(const std::string& path, const std::string& contents) {
        std::ofstream file(path, std::ios::binary);
        file << contents;
        file.close();
        if (!file)
            throw std::runtime_error("cannot write " + path);
    }

    void RequireRecords(const Job& job, const std::string& text, const std::string& source) {
        if (!job.finds(text))
            throw std::runtime_error("the records read from " + source + " are not those of " + job.name);
    }

    // One line a job: its name, the digests of the document and of the text written ("-" when the stack only
    // reads).
    void Verify(const std::vector<Job>& jobs, const std::string& directory) {
        for (const Job& job : jobs) {
            RequireRecords(job, job.text, "the document");
            std::string written = "-";
            if (job.write) {
                const std::string text = job.write();
                WriteFile(directory + "/" + job.name + ".xml", text);
                written = Digest(text);
            }
            std::cout << job.name << ' ' << Digest(job.text) << ' ' << written << '\n';
        }
    }

    void RunOnce(const Job& job, const std::string& operation, long count) {
        if (operation != "read" && operation != "write")
            throw std::runtime_error("--once takes read or write, not " + operation);
        if (operation == "write" && !job.write)
            throw std::runtime_error("this stack does not write");
        for (long i = 0; i < count; ++i) {
            if (operation == "read")
                job.read(job.text);
            else
                benchmark::DoNotOptimize(job.write().data());
        }
    }

    void CountBytes(benchmark::State& state, const Job& job) {
        state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(job.text.size()));
    }

    void MeasureRead(benchmark::State& state, const Job& job) {
        const std::string text = job.text; // a text of its own for every thread
        while (state.KeepRunning())
            job.read(text);
        CountBytes(state, job);
    }

    void MeasureWrite(benchmark::State& state, const Job& job) {
        while (state.KeepRunning())
            benchmark::DoNotOptimize(job.write().data());
        CountBytes(state, job);
    }

    // Arithmetic in registers: no memory, no lock, no system call. Two threads do twice as much of it exactly
    // when the machine has two real processors for them. Eight sums that do not wait for one another keep a
    // processor so busy that two virtual ones sharing it cannot pass for two.
    void MeasureControl(benchmark::State& state) {
        std::array<std::uint64_t, 8> values = {1, 2, 3, 4, 5, 6, 7, 8};
        while (state.KeepRunning()) {
            for (int i = 0; i < 20000; ++i)
                for (std::uint64_t& value : values)
                    value = value * 6364136223846793005U + 1442695040888963407U;
            benchmark::DoNotOptimize(values);
        }
    }

    // The two-thread runs come last, and the control first among them: once a process has had a second
    // thread, its allocator no longer takes the ways that are reserved to a single one.
    // Google Benchmark keeps references to the jobs.
    void Register(const std::vector<Job>& jobs) {
        for (const Job& job : jobs) {
            benchmark::RegisterBenchmark(("read/" + job.name).c_str(), MeasureRead, std::cref(job));
            if (job.write)
                benchmark::RegisterBenchmark(("write/" + job.name).c_str(), MeasureWrite, std::cref(job));
        }
        benchmark::RegisterBenchmark("parallel/control", MeasureControl)->ThreadRange(1, 2)->UseRealTime();
        for (const char* name : InParallel)
            benchmark::RegisterBenchmark(("parallel/read/" + std::string(name)).c_str(), MeasureRead,
                                         std::cref(FindJob(jobs, name)))
                ->ThreadRange(1, 2)
                ->UseRealTime();
    }

    void Measure(int argc, char** argv, const std::string& library, const std::vector<Job>& jobs) {
        benchmark::AddCustomContext("library", library);
        benchmark::AddCustomContext("compiler", __VERSION__);
#ifdef __OPTIMIZE__
        benchmark::AddCustomContext("optimised", "yes");
#else
        benchmark::AddCustomContext("optimised", "no");
#endif
        for (const Job& job : jobs)
            benchmark::AddCustomContext("bytes/" + job.name, std::to_string(job.text.size()));
        Register(jobs);
        benchmark::Initialize(&argc, argv);
        if (benchmark::ReportUnrecognizedArguments(argc, argv))
            throw std::runtime_error("wrong use");
        benchmark::RunSpecifiedBenchmarks();
        benchmark::Shutdown();
    }

    void Run(int argc, char** argv, const std::string& library, const std::vector<Job>& jobs) {
        const std::vector<std::string> arguments(argv + 1, argv + argc);
        const std::string mode = arguments.empty() ? "" : arguments.front();
        if (mode == "--verify" && arguments.size() == 2)
            return Verify(jobs, arguments[1]);
        if (mode == "--once" && arguments.size() == 4)
            return RunOnce(FindJob(jobs, arguments[2]), arguments[1], std::atol(arguments[3].c_str()));
        if (mode == "--check" && arguments.size() == 3)
            return RequireRecords(FindJob(jobs, arguments[1]), FileContents(arguments[2]), arguments[2]);
        Measure(argc, argv, library, jobs);
    }
} // namespace

int bench::RunStack(int argc, char** argv, const std::string& library, const std::vector<Job>& jobs) {
    try {
        Run(argc, argv, library, jobs);
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << argv[0] << ": " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
