// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "bench/documents.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

// What every stack's benchmark program shares: the work that a stack does on an input, and the command line.
namespace bench {
    // A document together with what the stack under test does with it, whatever the kind of its records.
    struct Job {
        std::string name;
        std::string text;

        std::function<void(const std::string& text)> read;  // timed: text to records, and their release
        std::function<std::string()> write;                 // timed: records to text; empty for a mere reader
        std::function<bool(const std::string& text)> finds; // whether it reads the document's records there
    };

    // What a stack does with any document; all of it throws on failure. A stack with record classes of its
    // own is measured on these, as its users have them; making and comparing them is not measured.
    //
    //   Codec::Make(sample)           the records in the stack's own form
    //   Codec::Read(text, records)
    //   Codec::Write(records, text)   not there when the stack only reads
    //   Codec::Holds(records, plain)  whether they are the same
    template <class Codec, class Plain>
    Job MakeJob(const Sample<Plain>& sample) {
        using Records = decltype(Codec::Make(sample));
        Job job{sample.name, sample.text, {}, {}, {}};
        job.read = [](const std::string& text) {
            Records records;
            Codec::Read(text, records);
            benchmark::DoNotOptimize(&records);
        };
        job.finds = [plain = sample.records](const std::string& text) {
            Records records;
            Codec::Read(text, records);
            return Codec::Holds(records, plain);
        };
        if constexpr (requires(Records & records, std::string & text) { Codec::Write(records, text); }) {
            job.write = [records = std::make_shared<Records>(Codec::Make(sample))] {
                std::string text;
                Codec::Write(*records, text);
                return text;
            };
        }
        return job;
    }

    template <class Codec>
    std::vector<Job> MakeJobs() {
        const auto make = [](const auto&... sample) { return std::vector{MakeJob<Codec>(sample)...}; };
        return std::apply(make, MakeSamples());
    }

    // The codec of a peer, which reads and writes the plain records by their descriptions, through a class of
    // the stack's:
    //
    //   Stack::Parse(text, visit)         calls visit with the root element
    //   Stack::Build(name, text, fill)    writes the document of that root, which `fill` has filled, to
    //   `text`
    template <class Stack>
    struct PeerCodec {
        template <class Plain>
        static Plain Make(const Sample<Plain>& sample) {
            return sample.records;
        }
        template <class Plain>
        static void Read(const std::string& text, Plain& records) {
            Stack::Parse(text, [&records](const auto& root) { ReadValue(root, records); });
        }
        template <class Plain>
        static void Write(const Plain& records, std::string& text) {
            Stack::Build(Plain::Root, text, [&records](auto root) { WriteValue(root, records); });
        }
        template <class Plain>
        static bool Holds(const Plain& records, const Plain& plain) {
            return records == plain;
        }
    };

    // The program of one stack. `library` says which parser it measures, for the results.
    //
    //   (nothing, or Google Benchmark's options)   measure
    //   --verify DIRECTORY    read and write every job once; print the digests of the document and of the
    //   text
    //                         written, and leave that in DIRECTORY as JOB.xml; fails when the records read
    //                         are not the document's
    //   --check JOB FILE      fails when the records that this stack reads from FILE are not the document's
    //   --once read|write JOB COUNT   do it COUNT times and nothing else, for a profiler
    int RunStack(int argc, char** argv, const std::string& library, const std::vector<Job>& jobs);
} // namespace bench
