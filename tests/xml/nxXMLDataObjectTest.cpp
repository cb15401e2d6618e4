// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLDataObject.h"

#include "core/nxDataCategoryEnum.h"
#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxPrint.h"
#include "xmlFramework/kestrum/nxKestrumModuleSpec.h"
#include "xmlFramework/market/nxAlgoIDMappingList.h"
#include "xmlFramework/market/nxMICDefinitionList.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <typeinfo>

namespace {
    class Record : public nxXMLDataObject {
    public:
        explicit Record(const nxUnsignedValueWrapper& code) : _code(code) { ++count; }
        ~Record() override { --count; }
        nxErrorEnum ConvertFromXML(const std::string&, const std::string&) override {
            return nxErrorEnum::OK;
        }
        nxErrorEnum ConvertToXML(std::string&, const std::string&) override { return nxErrorEnum::OK; }
        nxUnsignedValueWrapper GetDataCategoryTypeID() override { return _code; }
        nxXMLDataObject* CreateInstance() const override { return new Record(_code); }
        Record* CopyInstance() const override { return new Record(*this); }

        static bool Register(const nxUnsignedValueWrapper& code) { return _Register(new Record(code)); }

        static inline int count = 0;

    private:
        nxUnsignedValueWrapper _code;
    };

    std::unique_ptr<nxXMLDataObject> Create(const nxUnsignedValueWrapper& code) {
        return std::unique_ptr<nxXMLDataObject>(nxXMLDataObject::CreateInstance(code));
    }
} // namespace

// Programs that were built before find the operations by these places in the table.
TEST(nxXMLDataObject, HasItsVirtualOperationsWhereTheyHaveAlwaysBeen) {
    const auto placeOf = [](auto operation) {
        std::uintptr_t offset = 0; // plus 1, as all compilers of this system have it
        std::memcpy(&offset, &operation, sizeof offset);
        return (offset - 1) / sizeof(void*);
    };
    using Create = nxXMLDataObject* (nxXMLDataObject::*)() const;
    EXPECT_EQ(placeOf(&nxXMLDataObject::ConvertFromXML), 2U); // behind two destructors
    EXPECT_EQ(placeOf(&nxXMLDataObject::ConvertToXML), 3U);
    EXPECT_EQ(placeOf(&nxXMLDataObject::GetDataCategoryTypeID), 4U);
    EXPECT_EQ(placeOf(static_cast<Create>(&nxXMLDataObject::CreateInstance)), 5U);
    EXPECT_EQ(placeOf(&nxXMLDataObject::CopyInstance), 6U);
    EXPECT_EQ(placeOf(&nxMICDefinitionList::IsValid), 7U);
}

TEST(nxXMLDataObjectCreateInstance, MakesAnEmptyRecordOfTheRegisteredClassOrNone) {
    const struct {
        unsigned int code;
        const std::type_info& type;
        const char* xml; // of an empty record
    } cases[] = {
        {0x414C4944, typeid(nxAlgoIDMappingList), "<AlgoIDMappingList><AlgoIDMappings/></AlgoIDMappingList>"},
        {0x584D4943, typeid(nxMICDefinitionList), "<MICDefinitionList><MICDefinitions/></MICDefinitionList>"},
    };
    for (const auto& [code, type, xml] : cases) {
        const auto first = Create(code);
        const auto second = Create(code);
        ASSERT_TRUE(first && second && first != second);
        const nxXMLDataObject& record = *first;
        EXPECT_EQ(typeid(record), type);
        EXPECT_EQ(first->GetDataCategoryTypeID(), code);
        std::string written;
        EXPECT_EQ(first->ConvertToXML(written, ""), nxErrorEnum::OK);
        EXPECT_EQ(written, xml);
        const std::unique_ptr<nxXMLDataObject> copy(first->CopyInstance());
        const nxXMLDataObject& copied = *copy;
        EXPECT_EQ(typeid(copied), type);
    }
    EXPECT_EQ(Create(0x616C6964), nullptr);                                      // "alid"
    EXPECT_EQ(Create(nxDataCategoryEnum::OrvalenPriceUsageStatistics), nullptr); // nobody registers it
}

TEST(nxXMLDataObjectConvertToXML, LogsWhatCannotBeCarriedWhenTheRecordStopsThere) {
    nxKestrumModuleSpec record;
    record.SetSourceCode("\x01");
    const nxCollectedLog log;
    std::string xml = "before";
    EXPECT_EQ(record.ConvertToXML(xml, ""), nxErrorEnum::XMLTextNotCarried);
    EXPECT_EQ(xml, "before");
    ASSERT_EQ(log.Records().size(), 1U);
    EXPECT_EQ(log.Records().front().level, nxLogLevelEnum::Error);
    EXPECT_EQ(log.Records().front().sourceFile, "xmlFramework/trunk/nxXMLDocument");
}

TEST(nxXMLDataObjectRegister, KeepsTheFirstRecordOfACodeAndLogsTheSecond) {
    const struct {
        nxUnsignedValueWrapper code;
        const char* text;
    } cases[] = {
        {0x414C4944, "Algo ID mapping list (1095518532)"},
        {0x5A5A2020, "ZZ (1515855904)"},
        {0x5A004142, "Z (1509966146)"},
        {nxNullInitalizer(), "NULL (NULL)"},
    };
    for (const auto& [code, text] : cases) {
        const bool ours = Create(code) == nullptr;
        const int before = Record::count;
        const nxCollectedLog log;
        EXPECT_EQ(Record::Register(code), ours) << text;
        EXPECT_EQ(log.Entries().size(), ours ? 0U : 1U);
        EXPECT_FALSE(Record::Register(code));
        EXPECT_EQ(Record::count, before + (ours ? 1 : 0)) << text;
        EXPECT_NE(Create(code), nullptr);
        ASSERT_FALSE(log.Records().empty());
        const CollectedRecord& record = log.Records().back();
        EXPECT_EQ(record.entry,
                  std::string("Attempt to register duplicate nxXMLDataObject object instance for "
                              "category ID: ") +
                      text);
        EXPECT_EQ(record.level, nxLogLevelEnum::Error);
        EXPECT_EQ(record.sourceFile, "xmlFramework/trunk/nxXMLDataObject");
    }
}
