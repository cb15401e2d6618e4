// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

// What every stack's benchmark program shares: an input, the work a stack does on it, and the command line.
namespace bench {
    // One input: a text, and the records that a reader must find in it. `Plain` is the neutral form in which
    // the stacks are compared; it needs a `std::string Canonical(const Plain&)`.
    template <class Plain>
    struct Document {
        std::string name;
        std::string text;
        Plain records;
    };

    // How a stack reads and writes one kind of document. A stack with record classes of its own (`Native`)
    // is measured on these, as its users have them; the conversions serve preparation and checks only.
    // All of them throw on failure.
    template <class Plain, class Native = Plain>
    struct Codec {
        void (*read)(const std::string& text, Native& records);
        void (*write)(Native& records, std::string& text); // null when the stack only reads
        void (*fromPlain)(const Plain& plain, Native& records) = nullptr;
        void (*toPlain)(Native& records, Plain& plain) = nullptr;
    };

    // A document together with what the stack under test does with it, whatever the kind of its records.
    struct Job {
        std::string name;
        std::string text;
        std::string expected; // canonical form of the records

        std::function<void(const std::string& text)> read; // timed: text to records, and their release
        std::function<void()> write;                       // timed: records to text; empty for a mere reader
        std::function<std::string(const std::string& text)> canonicalOfRead;
        std::function<std::string()> textWritten;
    };

    template <class Plain, class Native>
    std::string CanonicalOfRead(const Codec<Plain, Native>& codec, const std::string& text) {
        Native records;
        codec.read(text, records);
        if constexpr (std::is_same_v<Plain, Native>)
            return Canonical(records);
        else {
            Plain plain;
            codec.toPlain(records, plain);
            return Canonical(plain);
        }
    }

    // The functions returned keep the records of `document` alive in the stack's own form.
    template <class Plain, class Native>
    Job MakeJob(const Document<Plain>& document, const Codec<Plain, Native>& codec) {
        Job job;
        job.name = document.name;
        job.text = document.text;
        job.expected = Canonical(document.records);
        job.canonicalOfRead = [codec](const std::string& text) { return CanonicalOfRead(codec, text); };
        job.read = [codec](const std::string& text) {
            Native records;
            codec.read(text, records);
            benchmark::DoNotOptimize(&records);
        };
        if (codec.write == nullptr)
            return job;

        const auto records = std::make_shared<Native>();
        if constexpr (std::is_same_v<Plain, Native>)
            *records = document.records;
        else
            codec.fromPlain(document.records, *records);
        job.textWritten = [codec, records] {
            std::string text;
            codec.write(*records, text);
            return text;
        };
        job.write = [written = job.textWritten] { benchmark::DoNotOptimize(written().data()); };
        return job;
    }

    // The program of one stack. `library` says which parser it measures, for the results.
    //
    //   (nothing, or Google Benchmark's options)   measure
    //   --verify DIRECTORY    read and write every job once; print the digests; leave the texts written in
    //                         DIRECTORY as JOB.xml; fails when the records read are not those expected
    //   --digest JOB FILE     print the digest of the records that this stack reads from FILE
    //   --once read|write JOB COUNT   do it COUNT times and nothing else, for a profiler
    int RunStack(int argc, char** argv, const std::string& library, const std::vector<Job>& jobs);
} // namespace bench
