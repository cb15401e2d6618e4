// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumLimit.h"

#include "include/nxLogLevels.h"
#include "include/nxWriteLog.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxKestrumLimit";
    constexpr char ContextProduct[] = "[CONTEXT]";
} // namespace

struct nxKestrumLimit::Fields {
    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        using namespace nxXMLFields;
        field("ProductID", Required(record._productID), Key());
        field("MaxShort", Required(record._maxShort));
        field("MaxLong", Required(record._maxLong));
        field("MaxBuys", record._maxBuys);
        field("MaxSells", record._maxSells);
        field("ClipLimit", record._clipLimit);
        field("Strategy", record._isPartOfStrategy);
        field("Netting", record._allowNetting);
        field("MarginRiskStrategy", record._marginRiskStrategy);
        field("AccountID", NullIfMalformed(record._accountID));
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

nxErrorEnum nxKestrumLimit::_Read(const nxXMLNode& node, const nxXMLReadContext& context) {
    return nxXMLFields::ReadFirst(node, context, [this](auto& field) { Fields::Visit(*this, field); })
        .GetResultLogged({nxLogLevels::Error, SourceFile}, "Failed to read limit. ");
}

void nxKestrumLimit::_Write(nxXMLSink& sink) const {
    Fields::Visit(*this, nxXMLFields::Writer(sink));
}

std::vector<nxXMLFieldDescription> nxKestrumLimit::_Describe() {
    const nxKestrumLimit none;
    return nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); });
}

nxErrorEnum nxKestrumLimit::ConvertToXML(nxXMLElement& element) const {
    return nxXMLConversion::WriteElement(*this, element);
}

nxErrorEnum nxKestrumLimit::ConvertFromXML(nxXMLElement& element) {
    return nxXMLConversion::ReadElement(*this, element, std::string());
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
