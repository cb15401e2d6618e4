// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "xmlFramework/nxXMLFrameworkExport.h"

#include <cstddef>
#include <string>
#include <vector>

// One thing in a document that a record did not take as it stands there. Names, keys and texts that are not
// the finding's own may stand in any number of findings: more than 200 bytes of one end in "...".
struct XMLFRAMEWORK_API nxXMLFinding {
    enum class Kind {
        NotWellFormed,    // the text is no XML document; nothing was read
        UnknownElement,   // no field takes it
        UnknownAttribute, // no field takes it
        Repeated,         // one element of this name counts, and this is another
        NotReached,       // a field's element, but reading ended before it, or had passed it
        NoValue,          // its text is no value of the field's type
        LostText,         // text where none is read: in CDATA, behind a comment or an element, in a list
        ItemLeftOut,      // an item that is not in the record, or has replaced another
        NameNotKept,      // an item that is read, but would be written under another name
        Missing,          // an element that writing the record would have written
    };

    Kind kind = Kind::UnknownElement;
    std::string path;       // "/KestrumJobSpec/Limits/Limit[2]/MaxShort"; items count from 1
    std::size_t line = 0;   // where it begins, counted from 1, in characters of the document;
    std::size_t column = 0; // 0 where it is not known
    std::string key;        // of the innermost item around it that has one: "XLON"
    std::string name;       // of the element or attribute
    std::string found;      // the text in question, as far as there is one
    std::string expected;   // what might have stood there: a known name, or a value's description
    std::string held;       // what the record holds in its place
    std::string reason;     // more, where the kind does not say it all; the value that was perhaps meant

    // Whether the document says something that the record does not hold, or holds otherwise. What is merely
    // missing is no loss: formats give every field a default.
    bool IsLoss() const;
    // A name that does not change, for programs: "unknown-element".
    const char* GetCode() const;
    // For people, without place and path; long texts are shortened.
    std::string GetMessage() const;
};

// What reading a record from a document took as it stood, and each thing that it did not. The findings come
// out of the reading itself, so they are true of the record that was read. A report belongs to one thread at
// a time.
class XMLFRAMEWORK_API nxXMLReport {
public:
    // record.ConvertFromXML(xml, logPrefix), with its result and all that it does. The findings are those of
    // this document, in its order; at most 100,000 losses, and as many that are none. Throws std::bad_alloc.
    template <class Record>
    [[nodiscard]] nxErrorEnum Read(Record& record, const std::string& xml, const std::string& logPrefix) {
        const Listening listening(*this);
        return record.ConvertFromXML(xml, logPrefix);
    }

    const std::vector<nxXMLFinding>& GetFindings() const { return _findings; }

    // The report that listens to what this thread reads; null mostly. For those who read.
    static nxXMLReport* GetListening();
    void Add(nxXMLFinding finding) { _findings.push_back(std::move(finding)); }
    void Clear() { _findings.clear(); }
    void AddNotWellFormed(std::size_t line, std::size_t column, std::string reason);

private:
    class XMLFRAMEWORK_API Listening {
    public:
        explicit Listening(nxXMLReport& report);
        ~Listening();
        Listening(const Listening&) = delete;
        Listening& operator=(const Listening&) = delete;

    private:
        nxXMLReport* _before;
    };

    std::vector<nxXMLFinding> _findings;
};
