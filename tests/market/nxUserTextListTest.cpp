// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxUserTextList.h"

#include "tests/support/nxRandomText.h"
#include "tests/support/nxRecordText.h"

namespace {
    using nxRecordText::Read;
    using nxRecordText::Written;
    using Strings = std::vector<std::string>;
} // namespace

TEST(nxUserTextListAddUserTextEntry, LeavesATextThatIsThereInItsPlace) {
    nxUserTextList list;
    for (const char* text : {"abc", "", "ABC", "abc", "", "abc "})
        list.AddUserTextEntry(text);
    EXPECT_EQ(list.GetUserTextEntries(), (Strings{"abc", "", "ABC", "abc "}));
    list.ClearAllUserTextEntries();
    EXPECT_EQ(list.GetUserTextEntries(), Strings());
}

TEST(nxUserTextListGetDataInstanceNameForUserID, NamesTheUser) {
    EXPECT_EQ(nxUserTextList::GetDataInstanceNameForUserID(42), "UserTextList_42");
    EXPECT_EQ(nxUserTextList::GetDataInstanceNameForUserID(0), "UserTextList_0");
    EXPECT_EQ(nxUserTextList::GetDataInstanceNameForUserID(nxNullInitalizer()), "UserTextList_???");
    EXPECT_EQ(nxUserTextList::GetDataInstanceNameForUserID(nxNoChangeInitalizer()), "UserTextList_???");
}

TEST(nxUserTextListConvertFromXML, AddsTheLeadingTextsAndKeepsDuplicates) {
    const struct {
        const char* xml;
        Strings texts;
    } cases[] = {
        {"<x/>", {"a"}},
        {"<x>text<UT>a</UT><!--c--><UT>a</UT><UT/><UT> b\n</UT></x>", {"a", "a", "a", "", " b\n"}},
        {"<x><UT>a</UT><ut>b</ut><UT>c</UT></x>", {"a", "a"}},
        {"<x><y/><UT>a</UT></x>", {"a"}},
        {"<x><UT><b/>a</UT><UT><UT>c</UT></UT></x>", {"a", "", ""}},
    };
    for (const auto& [xml, texts] : cases) {
        nxUserTextList list;
        list.AddUserTextEntry("a");
        nxRecordText::ExpectRefused(list, std::string(xml) + "<x>",
                                    "Failed to convert XML data to user text history list. "
                                    "Unable to create XML document from XML string",
                                    "nxUserTextList");
        Read(list, xml);
        EXPECT_EQ(list.GetUserTextEntries(), texts) << xml;
    }
}

TEST(nxUserTextListConvertToXML, ReadsBackTheSame) {
    nxUserTextList list;
    EXPECT_EQ(Written(list), "<UserTextHistoryList/>");
    list.GetUserTextEntries() = {"b<", "", "b<"};
    EXPECT_EQ(Written(list),
              "<UserTextHistoryList><UT>b&lt;</UT><UT></UT><UT>b&lt;</UT></UserTextHistoryList>");

    nxRandomText random(14);
    for (int round = 0; round < 200; ++round) {
        list.ClearAllUserTextEntries();
        for (unsigned int count = random.Below(5); count > 0; --count)
            list.GetUserTextEntries().push_back(random.Text());
        nxUserTextList read;
        Read(read, Written(list));
        ASSERT_EQ(read.GetUserTextEntries(), list.GetUserTextEntries()) << Written(list);
    }
}
