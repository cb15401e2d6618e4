// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumLimit.h"

#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLFields.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxKestrumLimit";
    constexpr char ContextProduct[] = "[CONTEXT]";
} // namespace

struct nxKestrumLimit::Fields {
    template <class Record, class Visitor>
    static void VisitPosition(Record& record, Visitor&& field) {
        field("ProductID", record._productID);
        field("MaxShort", record._maxShort);
        field("MaxLong", record._maxLong);
    }
    template <class Record, class Visitor>
    static void VisitRest(Record& record, Visitor&& field) {
        field("MaxBuys", record._maxBuys);
        field("MaxSells", record._maxSells);
        field("ClipLimit", record._clipLimit);
        field("Strategy", record._isPartOfStrategy);
        field("Netting", record._allowNetting);
        field("MarginRiskStrategy", record._marginRiskStrategy);
        field("AccountID", nxXMLFields::NullIfMalformed(record._accountID));
    }
};

nxKestrumLimit::nxKestrumLimit(const std::string& productID, unsigned int maxShort, unsigned int maxLong,
                               unsigned int maxBuys, unsigned int maxSells, unsigned int clipLimit,
                               const std::string& /*ignoredText*/, const nxUnsignedValueWrapper& accountID)
    : _productID(productID), _maxLong(maxLong), _maxShort(maxShort), _maxBuys(maxBuys), _maxSells(maxSells),
      _clipLimit(clipLimit), _accountID(accountID) {}

nxKestrumLimit::~nxKestrumLimit() = default;

nxKestrumLimit* nxKestrumLimit::CopyInstance() const {
    return new nxKestrumLimit(*this);
}

bool nxKestrumLimit::IsContextLimit() const {
    return _productID == ContextProduct;
}

void nxKestrumLimit::SetContextLimit() {
    _productID = ContextProduct;
}

nxErrorEnum nxKestrumLimit::ConvertToXML(nxXMLElement& element) const {
    nxXMLFields::UntilFailure position{nxXMLFields::Writer(element)};
    Fields::VisitPosition(*this, position);
    Fields::VisitRest(*this, nxXMLFields::Writer(element));
    return position.GetResult();
}

nxErrorEnum nxKestrumLimit::ConvertFromXML(nxXMLElement& element) {
    nxXMLFields::UntilFailure position{nxXMLFields::Reader(element)};
    Fields::VisitPosition(*this, position);
    Fields::VisitRest(*this, nxXMLFields::Reader(element));
    return position.GetResultLogged({nxLogLevels::Error, SourceFile}, "Failed to read limit. ");
}

std::string nxKestrumLimit::GetAsString() const {
    // Sells before buys here, buys before sells in the document: log readers expect it so.
    std::string text = "Product : " + _productID;
    text += " , MaxShort : " + nxStringHelper::GetAsString(_maxShort);
    text += " , MaxLong : " + nxStringHelper::GetAsString(_maxLong);
    text += " , MaxSells : " + nxStringHelper::GetAsString(_maxSells);
    text += " , MaxBuys : " + nxStringHelper::GetAsString(_maxBuys);
    text += " , ClipLimit : " + nxStringHelper::GetAsString(_clipLimit);
    text += " , Strategy : " + nxStringHelper::GetAsString(_isPartOfStrategy);
    text += " , Netting : " + nxStringHelper::GetAsString(_allowNetting);
    text += " , MarginRiskStrategy : " + nxStringHelper::GetAsString(_marginRiskStrategy);
    text += " , AccountID : " + (_accountID.IsValid() ? _accountID.GetAsString() : std::string());
    return text;
}
