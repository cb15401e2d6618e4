// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxUserTextList.h"

#include "tests/support/nxRecordText.h"

namespace {
    using namespace nxRecordText;
    using Strings = std::vector<std::string>;
} // namespace

TEST(nxUserTextListAddUserTextEntry, LeavesATextThatIsThereInItsPlace) {
    nxUserTextList list;
    for (const char* text : {"abc", "", "ABC", "abc", "", "abc "})
        list.AddUserTextEntry(text);
    EXPECT_EQ(Written(list), Element("UserTextHistoryList", Elements("UT=abc UT= UT=ABC") + "<UT>abc </UT>"));
    list.ClearAllUserTextEntries();
    EXPECT_EQ(Written(list), "<UserTextHistoryList/>");
}

TEST(nxUserTextListGetDataInstanceNameForUserID, NamesTheUser) {
    EXPECT_EQ(nxUserTextList::GetDataInstanceNameForUserID(0), "UserTextList_0");
    EXPECT_EQ(nxUserTextList::GetDataInstanceNameForUserID(nxNullInitalizer()), "UserTextList_???");
    EXPECT_EQ(nxUserTextList::GetDataInstanceNameForUserID(nxNoChangeInitalizer()), "UserTextList_???");
}

TEST(nxUserTextListConvertFromXML, AddsTheLeadingTextsAndKeepsDuplicates) {
    const struct {
        const char* children;
        Strings texts;
    } cases[] = {
        {"text<UT>a</UT><!--c--><UT>a</UT><UT/><UT> b\n</UT>", {"a", "a", "a", "", " b\n"}},
        {"<UT>a</UT><ut>b</ut><UT>c</UT>", {"a", "a"}},
        {"<y/><UT>a</UT>", {"a"}},
        {"<UT><b/>a</UT><UT><UT>c</UT></UT>", {"a", "", ""}},
    };
    for (const auto& [children, texts] : cases) {
        nxUserTextList list;
        list.AddUserTextEntry("a");
        Read(list, Element("any", children));
        EXPECT_EQ(list.GetUserTextEntries(), texts) << children;
    }
}
