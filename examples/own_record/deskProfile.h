// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxDecimal.h"
#include "core/nxTime.h"
#include "include/nxValueWrapper.h"
#include "xmlFramework/xml/nxXMLRecord.h"

#include <string>
#include <vector>

// Who may trade on a desk, and how much the desk may lose in a day. Category DESK, document "DeskProfile".
class DeskProfile final : public nxXMLDataObject {
public:
    // One trader of a desk.
    class Trader {
    public:
        nxUnsignedValueWrapper id;
        std::string name;

    private:
        friend nxXMLItem; // the list reads, writes and describes its items by these
        struct Fields;
        nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context);
        void _Write(nxXMLSink& sink) const;
        static std::vector<nxXMLFieldDescription> _Describe();
    };

    static constexpr unsigned int Category = nxDataCategoryCode("DESK");

    std::string name; // without it the profile is not read
    bool isActive = false;
    nxDecimal maxLoss;
    nxTime opensAt;
    std::vector<Trader> traders;

    // Adds to the traders held.
    nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& logPrefix) override;
    nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string&) override;
    nxUnsignedValueWrapper GetDataCategoryTypeID() override { return Category; }
    nxXMLDataObject* CreateInstance() const override { return new DeskProfile; }
    DeskProfile* CopyInstance() const override { return new DeskProfile(*this); }
    static nxXMLDescription GetDocumentDescription();

private:
    struct Fields;
    static const bool _registered;
};
