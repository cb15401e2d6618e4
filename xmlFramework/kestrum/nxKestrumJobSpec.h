// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxOwnedItems.h"
#include "xmlFramework/kestrum/nxKestrumLimit.h"
#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDescription.h"

#include <string>

// One request to run a Kestrum algorithm. Category KJOB, document "KestrumJobSpec".
class XMLFRAMEWORK_API nxKestrumJobSpec : public nxXMLDataObject {
public:
    using Limits = nxOwnedItems<nxKestrumLimit>::Items;

    // Adds to the limits held; every other field that is missing or malformed keeps its value, but for an
    // account, which a malformed text makes null. The first limit that cannot be read ends the list of
    // limits; the fields behind it are read, and the limit's failure is returned. A limit without product is
    // written, but cannot be read.
    [[nodiscard]] nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& context) override;
    [[nodiscard]] nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string&) override;
    nxUnsignedValueWrapper GetDataCategoryTypeID() override;
    nxXMLDataObject* CreateInstance() const override;
    nxKestrumJobSpec* CopyInstance() const override;
    // What the documents look like.
    static nxXMLDescription GetDocumentDescription();
    using nxXMLDataObject::CreateInstance;

    bool operator==(const nxKestrumJobSpec& other) const;

    const std::string& GetAlgorithmSpecName() const { return _algorithmSpecName; }
    void SetAlgorithmSpecName(const std::string& name) { _algorithmSpecName = name; }
    // The user string: name "=" value pairs, each ended by the byte 0x01. See nxKestrumAlgorithmSpec.
    // Documents hold "^^|^^" in place of the byte, so no value may hold that, or end in "^^|" or "^^|^".
    const std::string& GetParameters() const { return _parameters; }
    void SetParameters(const std::string& userString) { _parameters = userString; }
    const nxUnsignedValueWrapper& GetAccountID() const { return _accountID; }
    void SetAccountID(const nxUnsignedValueWrapper& accountID) { _accountID = accountID; }
    const nxUnsignedValueWrapper& GetBackTestingAccountID() const { return _backTestingAccountID; }
    void SetBackTestingAccountID(const nxUnsignedValueWrapper& accountID) {
        _backTestingAccountID = accountID;
    }
    unsigned int GetMaxTransactions() const { return _maxTransactions; }
    void SetMaxTransactions(const unsigned int& count) { _maxTransactions = count; }
    unsigned int GetMaxTransactionsPerSecond() const { return _maxTransactionsPerSecond; }
    void SetMaxTransactionsPerSecond(const unsigned int& count) { _maxTransactionsPerSecond = count; }
    const std::string& GetPreferredExchangeUser() const { return _preferredExchangeUser; }
    void SetPreferredExchangeUser(const std::string& user) { _preferredExchangeUser = user; }
    bool GetAntiCrossPullOrders() const { return _antiCrossPullOrders; }
    void SetAntiCrossPullOrders(bool antiCrossPullOrders) { _antiCrossPullOrders = antiCrossPullOrders; }
    bool GetDisablePreLimitCheck() const { return _disablePreLimitCheck; }
    void SetDisablePreLimitCheck(bool disable) { _disablePreLimitCheck = disable; }

    // Set and Add store copies; Add is always true.
    const Limits& GetLimits() const { return _limits.Get(); }
    void SetLimits(const Limits& limits) { _limits.Assign(limits); }
    bool AddLimit(const nxKestrumLimit& limit);
    void ClearLimits() { _limits.Clear(); }

private:
    struct Fields;

    static const bool _registered;

    std::string _algorithmSpecName;
    std::string _parameters;
    nxOwnedItems<nxKestrumLimit> _limits;
    nxUnsignedValueWrapper _accountID;
    nxUnsignedValueWrapper _backTestingAccountID;
    unsigned int _maxTransactions = 0;
    unsigned int _maxTransactionsPerSecond = 0;
    std::string _preferredExchangeUser;
    bool _antiCrossPullOrders = false;
    bool _disablePreLimitCheck = false;
};
