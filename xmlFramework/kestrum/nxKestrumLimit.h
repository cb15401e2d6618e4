// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "include/nxValueWrapper.h"
#include "xmlFramework/nxXMLFrameworkExport.h"
#include "xmlFramework/xml/nxXMLElement.h"

#include <string>
#include <vector>

class nxXMLNode;
class nxXMLSink;
struct nxXMLFieldDescription;
struct nxXMLItem;
struct nxXMLReadContext;

// What a Kestrum algorithm or job may do in one product: how far it may go short or long, how many contracts
// it may buy and sell in all, and the largest single order (the clip). Quantities are in contracts.
class XMLFRAMEWORK_API nxKestrumLimit {
public:
    nxKestrumLimit() = default; // every quantity 0, every flag false, no account
    // The flags are false. Note the order: short before long, buys before sells. `ignoredText` is a place in
    // the signature and nothing else: whatever is passed is dropped; pass "".
    nxKestrumLimit(const std::string& productID, unsigned int maxShort, unsigned int maxLong,
                   unsigned int maxBuys, unsigned int maxSells, unsigned int clipLimit,
                   const std::string& ignoredText, const nxUnsignedValueWrapper& accountID);
    nxKestrumLimit(const nxKestrumLimit&) = default;
    nxKestrumLimit(nxKestrumLimit&&) noexcept = default;
    nxKestrumLimit& operator=(const nxKestrumLimit&) = default;
    nxKestrumLimit& operator=(nxKestrumLimit&&) noexcept = default;
    virtual ~nxKestrumLimit();
    bool operator==(const nxKestrumLimit&) const = default;

    // A copy, which the caller owns.
    nxKestrumLimit* CopyInstance() const;

    const std::string& GetProductID() const { return _productID; }
    unsigned int GetMaxLong() const { return _maxLong; }
    unsigned int GetMaxShort() const { return _maxShort; }
    unsigned int GetMaxBuys() const { return _maxBuys; }
    unsigned int GetMaxSells() const { return _maxSells; }
    unsigned int GetClipLimit() const { return _clipLimit; }
    bool GetIsPartOfStrategy() const { return _isPartOfStrategy; }
    bool GetAllowNetting() const { return _allowNetting; }
    bool GetMarginRiskStrategy() const { return _marginRiskStrategy; }
    const nxUnsignedValueWrapper& GetAccountID() const { return _accountID; }

    void SetProductID(const std::string& productID) { _productID = productID; }
    void SetMaxLong(unsigned int maxLong) { _maxLong = maxLong; }
    void SetMaxShort(unsigned int maxShort) { _maxShort = maxShort; }
    void SetMaxBuys(unsigned int maxBuys) { _maxBuys = maxBuys; }
    void SetMaxSells(unsigned int maxSells) { _maxSells = maxSells; }
    void SetClipLimit(unsigned int clipLimit) { _clipLimit = clipLimit; }
    void SetIsPartOfStrategy(bool isPartOfStrategy) { _isPartOfStrategy = isPartOfStrategy; }
    void SetAllowNetting(bool allowNetting) { _allowNetting = allowNetting; }
    void SetMarginRiskStrategy(bool marginRiskStrategy) { _marginRiskStrategy = marginRiskStrategy; }
    void SetAccountID(const nxUnsignedValueWrapper& accountID) { _accountID = accountID; }

    // A context limit applies to whatever product the algorithm is started on. Its product ID is "[CONTEXT]".
    bool IsContextLimit() const;
    void SetContextLimit();

    // The limit as child elements of `element`. The result is that of product ID, short and long; each of
    // them is written, and read, only when the one before it was. All other fields are written and read in
    // any case, and their failures are not reported. Reading gives nxErrorEnum::ValueNotFound or
    // ValueNotParsed, and leaves a field that is missing or malformed as it was, but for the account, which a
    // malformed text makes null.
    [[nodiscard]] nxErrorEnum ConvertToXML(nxXMLElement& element) const;
    [[nodiscard]] nxErrorEnum ConvertFromXML(nxXMLElement& element);

    std::string GetAsString() const; // for logs

private:
    friend nxXMLItem;
    struct Fields;

    nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context);
    void _Write(nxXMLSink& sink) const;
    static std::vector<nxXMLFieldDescription> _Describe();

    std::string _productID;
    unsigned int _maxLong = 0;
    unsigned int _maxShort = 0;
    unsigned int _maxBuys = 0;
    unsigned int _maxSells = 0;
    unsigned int _clipLimit = 0;
    bool _isPartOfStrategy = false;
    bool _allowNetting = false;
    bool _marginRiskStrategy = false;
    nxUnsignedValueWrapper _accountID;
};
