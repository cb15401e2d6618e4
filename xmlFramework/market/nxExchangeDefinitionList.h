// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/market/nxExchangeDefinition.h"
#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDescription.h"

#include <map>
#include <memory>
#include <set>
#include <string>

// The platform's trading venues. Category EXCH, document "ExchangeDefinitionList".
//
// A copy has items of its own. An assigned list shares its items with the other list; each item lives as long
// as one of them holds it.
class XMLFRAMEWORK_API nxExchangeDefinitionList : public nxXMLDataObject {
public:
    using Definitions =
        std::map<std::string,
                 std::shared_ptr<nxExchangeDefinition>>; // by mnemonic; a null pointer is not valid, and is
                                                         // passed over by everything else

    nxExchangeDefinitionList() = default;
    nxExchangeDefinitionList(const nxExchangeDefinitionList& other);
    nxExchangeDefinitionList& operator=(const nxExchangeDefinitionList& other) = default;
    nxExchangeDefinitionList(nxExchangeDefinitionList&&) noexcept = default;
    nxExchangeDefinitionList& operator=(nxExchangeDefinitionList&&) noexcept = default;

    // Adds to what the list holds; of several definitions of one mnemonic the first stays.
    [[nodiscard]] nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& logPrefix) override;
    [[nodiscard]] nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string&) override;
    nxUnsignedValueWrapper GetDataCategoryTypeID() override;
    nxXMLDataObject* CreateInstance() const override;
    nxExchangeDefinitionList* CopyInstance() const override;
    // What the documents look like.
    static nxXMLDescription GetDocumentDescription();
    using nxXMLDataObject::CreateInstance;

    bool operator==(const nxExchangeDefinitionList& other) const; // in the values of the items

    // The first result, in key order, of an item that is not valid.
    virtual nxErrorEnum IsValid() const;

    Definitions& GetExchangeDefinitions() { return _definitions; }
    const Definitions& GetExchangeDefinitions() const { return _definitions; }

    // False, with `description` untouched, for an unknown mnemonic.
    bool GetDescriptionForMnemonic(const std::string& mnemonic, std::string& description) const;

    // Add the definitions with a role to `out`, which keeps what it holds. The list's items stay the list's.
    using Selection = std::map<std::string, const nxExchangeDefinition*>; // by mnemonic
    void GetExchangesOnly(Selection& out) const;
    void GetPriceSourcesOnly(Selection& out) const;
    void GetOrderDestinationsOnly(Selection& out) const;

    // Adds to `micToMnemonic`, which keeps what it holds, for each MIC the first venue, in byte order, that
    // lists it and that is a simulated one ("..._SIM") or not, and a new one ("NEW_...") or not, as wanted.
    void ProcessExchangeDefinitionList(std::map<std::string, std::string>& micToMnemonic, bool wantSimulated,
                                       bool wantNew) const;

    // Venues come in variants named "NEW_X", "X_SIM" and "NEW_X_SIM". Strips one prefix, then one suffix;
    // exactly as spelled here.
    static void StripOrvalenExchangeName(const std::string& name, std::string& stripped);
    // Whether `name`, stripped, is `baseName`, which is taken as it stands.
    static bool IsEquivalentExchange(const std::string& name, const std::string& baseName);
    static bool IsOneOfEquivalentExchanges(const std::string& name, const std::set<std::string>& baseNames);
    static bool IsCMEExchangeDestination(const std::string& name);

private:
    struct Fields;
    static const bool _registered;

    Definitions _definitions;
};
