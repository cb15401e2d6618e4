// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// What the lists of exchanges and of MICs have in common.

#include "tests/support/nxRecordText.h"
#include "xmlFramework/market/nxExchangeDefinitionList.h"
#include "xmlFramework/market/nxMICDefinitionList.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace {
    using namespace nxRecordText;
    using Strings = std::vector<std::string>;
    using Table = std::map<std::string, std::string>;

    struct Exchanges {
        using List = nxExchangeDefinitionList;
        using Item = nxExchangeDefinition;
        static constexpr auto Items =
            static_cast<List::Definitions& (List::*)()>(&List::GetExchangeDefinitions);
        static constexpr auto SetKey = &Item::SetMnemonic;
        static constexpr auto SetText = &Item::SetDescription;
        static constexpr auto GetText = &Item::GetDescription;
        static constexpr const char* Names[] = {"ExchangeDefinition", "Mnemonic", "Description"};
    };
    struct MICs {
        using List = nxMICDefinitionList;
        using Item = nxMICDefinition;
        static constexpr auto Items = static_cast<List::Definitions& (List::*)()>(&List::GetMICDefinitions);
        static constexpr auto SetKey = &Item::SetMIC;
        static constexpr auto SetText = &Item::SetName;
        static constexpr auto GetText = &Item::GetName;
        static constexpr const char* Names[] = {"MICDefinition", "MIC", "Name"};
    };

    template <class Kind>
    class KeyedItemList : public testing::Test {
    protected:
        using List = typename Kind::List;
        using Item = typename Kind::Item;

        static auto& ItemsOf(List& list) { return std::invoke(Kind::Items, list); }
        static Item& Add(List& list, const std::string& key, const std::string& text) {
            auto item = std::make_shared<Item>();
            std::invoke(Kind::SetKey, *item, key);
            std::invoke(Kind::SetText, *item, text);
            return *(ItemsOf(list)[key] = std::move(item));
        }
        static Table TextsOf(List& list) {
            Table texts;
            for (const auto& [key, item] : ItemsOf(list))
                texts.emplace(key, std::invoke(Kind::GetText, *item));
            return texts;
        }

        static std::string ItemElement(const std::string& suffix, const std::string& key,
                                       const std::string& text) {
            const auto [item, keyName, textName] = Kind::Names;
            return Element(std::string(item) + "-" + suffix, Element(keyName, key) + Element(textName, text));
        }
        static std::string Container(const std::string& items) {
            return Element(std::string(Kind::Names[0]) + "s", items);
        }
    };
    using Lists = testing::Types<Exchanges, MICs>;
    TYPED_TEST_SUITE(KeyedItemList, Lists);
} // namespace

TYPED_TEST(KeyedItemList, IsWrittenInByteOrderOfItsKeys) {
    typename TypeParam::List list;
    this->Add(list, "abc", "");
    std::invoke(TypeParam::SetKey, this->Add(list, "\u00E9.-:_1", ""), "other");
    this->Add(list, "ABC", "");
    const std::string xml = Written(list);
    std::size_t at = 0;
    for (const char* element : {"s>", "-ABC>", "-abc>", "-\u00E9.-:_1>", "-\u00E9.-:_1>"}) {
        at = xml.find(TypeParam::Names[0] + std::string(element), at + 1);
        EXPECT_NE(at, std::string::npos) << element << " in " << xml;
    }
}

TYPED_TEST(KeyedItemList, RefusesKeysAndTextsThatXMLCannotCarry) {
    const struct {
        const char* key;
        const char* text;
        std::string problem;
        const char* element; // in which the problem is
    } cases[] = {
        {"A B", "", "the name '" + std::string(TypeParam::Names[0]) + "-A B' cannot be carried by XML", "s"},
        {"A\xFF", "", "a name cannot be carried by XML: it is not valid UTF-8", "s"},
        {"A", "\x01", "a text cannot be carried by XML: it holds a character that XML 1.0 does not allow",
         ""},
    };
    for (const auto& [key, text, problem, element] : cases) {
        typename TypeParam::List list;
        this->Add(list, "0", "good");
        this->Add(list, key, text);
        const nxCollectedLog log(nxLogLevelEnum::Error);
        std::string xml = "before";
        EXPECT_EQ(list.ConvertToXML(xml, ""), nxErrorEnum::XMLTextNotCarried);
        EXPECT_EQ(xml, "before");
        const std::string place = TypeParam::Names[*element ? 0 : 2] + std::string(element);
        EXPECT_EQ(log.Entries(), Strings{"Error saving document: in memory \nException message is:  \n" +
                                         problem + ", in element '" + place + "'\n"});
    }
}

TYPED_TEST(KeyedItemList, AddsTheLeadingItemsOfEveryContainerUnderTheirOwnKeys) {
    const auto item = [](auto... texts) { return TestFixture::ItemElement(texts...); };
    const auto in = [](const std::string& items) { return TestFixture::Container(items); };
    const std::string prefix = TypeParam::Names[0] + std::string("-"); // of an item, without its key
    const struct {
        std::string children;
        Table texts;
    } cases[] = {
        {item("A", "A", "outside") + Element("x", in(item("B", "B", "too deep"))), {}},
        {"<x/>" + in(item("A", "A", "a")) + "text" + in(item("B", "B", "b")), {{"A", "a"}, {"B", "b"}}},
        {in(item("A", "B", "b") + "<!--c-->text" + item("B", "A", "a")), {{"A", "a"}, {"B", "b"}}},
        {in(item("1", "B", "first") + item("2", "B", "second") + item("3", "C", "c")),
         {{"B", "first"}, {"C", "c"}}},
        {in(item("1", "HELD", "read") + item("A", "", "no key")), {{"", "no key"}}},
        {in("<other/>" + item("A", "A", "a")) + in(item("B", "B", "b")), {{"B", "b"}}},
        {in(item("A", "A", "a") + Element(prefix, "") + item("B", "B", "b")), {{"A", "a"}}},
        {in(item("A", "A", "a") + Element("x" + prefix, "") + item("B", "B", "b")), {{"A", "a"}}},
    };
    for (auto [children, texts] : cases) {
        typename TypeParam::List list;
        this->Add(list, "HELD", "held");
        Read(list, Element("any", children));
        texts.emplace("HELD", "held");
        EXPECT_EQ(this->TextsOf(list), texts) << children;
    }
}

TYPED_TEST(KeyedItemList, IsValidAsLongAsEveryItemIs) {
    typename TypeParam::List list;
    EXPECT_EQ(list.IsValid(), nxErrorEnum::OK);
    this->Add(list, "A", "");
    EXPECT_EQ(list.IsValid(), nxErrorEnum::OK);
    std::invoke(TypeParam::SetKey, this->Add(list, "B", ""), "");
    EXPECT_EQ(list.IsValid(), nxErrorEnum::InvalidData);
}

TYPED_TEST(KeyedItemList, PassesOverNullPointersWhichAreNotValid) {
    typename TypeParam::List list;
    this->Add(list, "A", "a");
    const std::string xml = Written(list);
    EXPECT_EQ(this->ItemsOf(list)["absent"], nullptr);
    EXPECT_EQ(list.IsValid(), nxErrorEnum::InvalidData);
    EXPECT_EQ(Written(list), xml);

    const typename TypeParam::List copy(list);
    EXPECT_TRUE(copy == list);
    this->ItemsOf(list).erase("absent");
    EXPECT_FALSE(copy == list);
}

TYPED_TEST(KeyedItemList, SharesItemsWhenAssignedThatLiveAsLongAsEitherListWhileCopiesHaveTheirOwn) {
    for (const bool destroyTheFirst : {true, false}) {
        auto first = std::make_unique<typename TypeParam::List>();
        auto second = std::make_unique<typename TypeParam::List>();
        auto& item = this->Add(*first, "A", "a");
        this->Add(*second, "GONE", "");
        const std::weak_ptr<typename TypeParam::Item> replaced = this->ItemsOf(*second).at("GONE");
        *second = *first;
        EXPECT_TRUE(replaced.expired());
        const std::unique_ptr<typename TypeParam::List> copy(first->CopyInstance());
        std::invoke(TypeParam::SetText, item, "changed");
        EXPECT_EQ(this->TextsOf(*second), (Table{{"A", "changed"}}));
        EXPECT_EQ(this->TextsOf(*copy), (Table{{"A", "a"}}));

        this->Add(*second, "B", "b"); // the items are shared, the lists are not
        EXPECT_EQ(this->TextsOf(*first), (Table{{"A", "changed"}}));
        (destroyTheFirst ? first : second).reset();
        auto& left = destroyTheFirst ? *second : *first;
        left = *&left;
        EXPECT_EQ(this->TextsOf(left).at("A"), "changed");
    }
}

TEST(nxExchangeDefinitionListQueries, PassOverNullPointers) {
    nxExchangeDefinitionList list;
    list.GetExchangeDefinitions()["absent"];
    nxExchangeDefinitionList::Selection selection;
    list.GetExchangesOnly(selection);
    std::map<std::string, std::string> mnemonics;
    list.ProcessExchangeDefinitionList(mnemonics, false, false);
    std::string description = "before";
    EXPECT_FALSE(list.GetDescriptionForMnemonic("absent", description));
    EXPECT_EQ(description, "before");
    EXPECT_TRUE(selection.empty() && mnemonics.empty());
}

TEST(nxMICDefinitionListConvertToXML, LogsEachItem) {
    nxMICDefinitionList list;
    const nxCollectedLog log;
    Written(list);
    EXPECT_EQ(log.Entries(), Strings());
    list.GetMICDefinitions() = {{"XA", std::make_shared<nxMICDefinition>()},
                                {"XB", std::make_shared<nxMICDefinition>()}};
    Written(list);
    EXPECT_EQ(log.EntriesAt(nxLogLevelEnum::Trace),
              (Strings{"Converting MIC definition to XML. Element: MICDefinition-XA",
                       "Converting MIC definition to XML. Element: MICDefinition-XB"}));
    EXPECT_EQ(log.Records().back().sourceFile, "xmlFramework/trunk/nxMICDefinitionList");
}
