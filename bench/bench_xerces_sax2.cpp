// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// A bare scan with empty handlers, by the quickest of the parser's scanners: what this parser costs before
// anybody has looked at the document. Its "records" are mere counts, so that a scan that stopped half-way
// would be seen.

#include "bench/job.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/util/XercesVersion.hpp>

#include <cstddef>
#include <memory>
#include <string>

namespace {
    struct Counts {
        std::size_t elements = 0;
        std::size_t attributes = 0;
        std::size_t characters = 0; // UTF-16 units

        bool operator==(const Counts&) const = default;
    };

    class Counter : public xercesc::DefaultHandler {
    public:
        explicit Counter(Counts& counts) : _counts(counts) {}

        void startElement(const XMLCh*, const XMLCh*, const XMLCh*,
                          const xercesc::Attributes& attributes) override {
            ++_counts.elements;
            _counts.attributes += attributes.getLength();
        }
        void characters(const XMLCh*, XMLSize_t length) override { _counts.characters += length; }
        void fatalError(const xercesc::SAXParseException& error) override { throw error; }

    private:
        Counts& _counts;
    };

    std::size_t UTF16Units(std::string_view utf8) {
        std::size_t units = 0;
        for (const char c : utf8) {
            const auto byte = static_cast<unsigned char>(c);
            units += byte < 0x80U || byte >= 0xC0U; // the first byte of a character
            units += byte >= 0xF0U;                 // the character takes two units
        }
        return units;
    }

    // Counts what is written.
    class CountingNode {
    public:
        explicit CountingNode(Counts& counts) : _counts(counts) { ++counts.elements; }

        CountingNode Append(const char*) { return CountingNode(_counts); }
        void SetText(const std::string& text) { _counts.characters += UTF16Units(text); }
        void SetAttribute(const char*, const std::string&) { ++_counts.attributes; }

    private:
        Counts& _counts;
    };

    struct Scan {
        template <class Plain>
        static Counts Make(const bench::Sample<Plain>& sample) {
            return Count(sample.records);
        }

        static void Read(const std::string& text, Counts& counts) {
            const std::unique_ptr<xercesc::SAX2XMLReader> reader(
                xercesc::XMLReaderFactory::createXMLReader());
            reader->setFeature(xercesc::XMLUni::fgSAX2CoreNameSpaces, false);
            reader->setFeature(xercesc::XMLUni::fgSAX2CoreValidation, false);
            std::u16string scanner = xercesc::XMLUni::fgWFXMLScanner;
            reader->setProperty(xercesc::XMLUni::fgXercesScannerName, scanner.data());
            Counter counter(counts);
            reader->setContentHandler(&counter);
            reader->setErrorHandler(&counter);
            const xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(text.data()),
                                                    text.size(), "scan");
            reader->parse(source);
        }

        template <class Plain>
        static bool Holds(const Counts& counts, const Plain& plain) {
            return counts == Count(plain);
        }

    private:
        template <class Plain>
        static Counts Count(const Plain& plain) {
            Counts counts;
            bench::WriteValue(CountingNode(counts), plain);
            return counts;
        }
    };
} // namespace

int main(int argc, char** argv) {
    xercesc::XMLPlatformUtils::Initialize();
    const int status =
        bench::RunStack(argc, argv, "Xerces-C " XERCES_FULLVERSIONDOT, bench::MakeJobs<Scan>());
    xercesc::XMLPlatformUtils::Terminate();
    return status;
}
