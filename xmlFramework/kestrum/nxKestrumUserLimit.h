// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "include/nxValueWrapper.h"
#include "xmlFramework/nxXMLFrameworkExport.h"
#include "xmlFramework/xml/nxXMLDescription.h"

#include <string>

// The ceilings of the Kestrum engine for one user. Document "KestrumUserLimit"; the record has no category.
class XMLFRAMEWORK_API nxKestrumUserLimit {
public:
    nxKestrumUserLimit() = default; // all null
    nxKestrumUserLimit(const nxKestrumUserLimit&) = default;
    nxKestrumUserLimit& operator=(const nxKestrumUserLimit&) = default;
    nxKestrumUserLimit(nxKestrumUserLimit&&) noexcept = default;
    nxKestrumUserLimit& operator=(nxKestrumUserLimit&&) noexcept = default;
    virtual ~nxKestrumUserLimit();
    bool operator==(const nxKestrumUserLimit&) const = default;

    // A copy, which the caller owns.
    nxKestrumUserLimit* CopyInstance() const;

    const nxUnsignedValueWrapper& GetMaxTransactions() const { return _maxTransactions; }
    const nxUnsignedValueWrapper& GetMaxTransactionsPerSecond() const { return _maxTransactionsPerSecond; }
    const nxUnsignedValueWrapper& GetMaxConcurrentJobs() const { return _maxConcurrentJobs; }
    void SetMaxTransactions(const nxUnsignedValueWrapper& count) { _maxTransactions = count; }
    void SetMaxTransactionsPerSecond(const nxUnsignedValueWrapper& count) {
        _maxTransactionsPerSecond = count;
    }
    void SetMaxConcurrentJobs(const nxUnsignedValueWrapper& count) { _maxConcurrentJobs = count; }

    // As in nxXMLDataObject. Reading leaves a ceiling that is missing as it was and makes one that is
    // malformed null; nxErrorEnum::InvalidData only where the text is no document.
    [[nodiscard]] nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& context);
    [[nodiscard]] nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string& context) const;
    // What the documents look like.
    static nxXMLDescription GetDocumentDescription();

private:
    struct Fields;

    nxUnsignedValueWrapper _maxTransactions;
    nxUnsignedValueWrapper _maxTransactionsPerSecond;
    nxUnsignedValueWrapper _maxConcurrentJobs;
};
