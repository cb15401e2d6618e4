// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxDecimal.h"
#include "include/nxErrorEnum.h"
#include "xmlFramework/nxXMLFrameworkExport.h"
#include "xmlFramework/xml/nxXMLException.h" // for who catches it
#include "xmlFramework/xml/nxXercesForward.h"

#include <concepts>
#include <string>
#include <string_view>

class nxXMLText;

// A handle on one element of a document, with a cursor over the element's child elements.
//
// The element belongs to its document: handles end with the nxXMLDocument they come from, and with a
// successful load into it. A copy carries the cursor along. Texts are UTF-8, or UTF-32 for the wide
// operations. Names are compared exactly; only child elements count, so texts, comments and CDATA sections
// are skipped. Used by one thread at a time together with all other handles on the same document.
//
// Operations that return nxErrorEnum give nxErrorEnum::ValueNotFound for an invalid handle. Those that put
// text into the document give nxErrorEnum::XMLTextNotCarried for a text that XML 1.0 cannot carry (a control
// character other than tab, line feed and carriage return, U+FFFE, U+FFFF, bytes that are no UTF-8): nothing
// is put in then, and the document refuses to be saved. A name that is no XML name ("Leg 1") makes them
// throw nxXMLException, with nothing put in: names are mostly a program's own, and such a one is its fault.
class XMLFRAMEWORK_API nxXMLElement {
public:
    nxXMLElement() = default; // invalid
    explicit nxXMLElement(nxXerces::DOMElement* element) : _element(element) {}
    nxXMLElement(const nxXMLElement&) = default;
    nxXMLElement& operator=(const nxXMLElement&) = default;
    virtual ~nxXMLElement();

    bool IsValid() const { return _element != nullptr; }
    nxXerces::DOMElement* GetElement() const { return _element; }

    // Navigation. Each gives a handle whose own cursor stands before its first child, invalid when nothing is
    // found.

    // Puts the cursor before the first child.
    void ResetCurrentChildElement() { _currentChild = nullptr; }
    // The first child, which the cursor moves to. Without children the cursor stays and its child is
    // returned.
    nxXMLElement GetFirstChildElement();
    // The child after the cursor, which moves to it. Behind the last child the result is invalid and the
    // cursor stands before the first child again.
    nxXMLElement GetNextChildElement();
    // As above, but invalid when the child has another name. The cursor moves all the same.
    nxXMLElement GetFirstChildElement(std::string_view name);
    nxXMLElement GetNextChildElement(std::string_view name);
    // Puts the cursor so that GetNextChildElement gives the first child of that name. False, with the cursor
    // before the first child, when there is none.
    bool ResetCurrentChildElementImmediatelyPriorTo(std::string_view name);
    // The first child of that name, whatever the cursor, which stays.
    nxXMLElement FindChildElement(std::string_view name) const;
    // The first child of that name behind the child `after`. Invalid also when `after` is no child of this
    // element.
    nxXMLElement FindNextChildElement(std::string_view name, const nxXMLElement& after) const;

    // Building: appends a child, with a text where a value is given. Invalid, with nothing appended, for an
    // invalid handle and for a name or a text of characters that XML cannot carry. Throws nxXMLException for
    // a name that is no XML name, as SetAttribute does.
    nxXMLElement AddChildElement(std::string_view name);
    nxXMLElement AddChildElement(std::string_view name, std::string_view value);
    nxXMLElement AddChildElement(std::string_view name, const std::wstring& value);
    nxErrorEnum AddChildValue(std::string_view name, std::string_view value);
    nxErrorEnum AddChildValue(std::string_view name, const char* value);
    nxErrorEnum AddChildValue(std::string_view name, const std::wstring& value);
    nxErrorEnum AddChildValue(std::string_view name, long value);
    nxErrorEnum AddChildValue(std::string_view name, const nxDecimal& value); // with '.'
    // Flags, unsigned and floating-point numbers have text forms of their own (nxStringHelper, nxDecimal) and
    // would lose by way of long.
    template <class T>
    requires std::unsigned_integral<T> || std::floating_point<T>
        nxErrorEnum AddChildValue(std::string_view name, T value)
    = delete;

    // The element's text: its first child node, when that is a text node.
    nxErrorEnum SetValue(std::string_view value);
    nxErrorEnum SetValue(const char* value);
    nxErrorEnum SetValue(const std::wstring& value);
    nxErrorEnum SetValue(const nxDecimal& value); // with '.'
    // nxErrorEnum::ValueNotFound where there is no text: an empty element, or something else comes first.
    // GetText leaves the argument untouched then, GetValue leaves it empty.
    nxErrorEnum GetText(std::string& value) const;
    nxErrorEnum GetValue(std::wstring& value) const;
    // The text, or the empty text.
    std::string GetTextValue() const;
    std::wstring GetWideTextValue() const;

    // The same for a first child node that is a CDATA section, together with the sections right behind it: a
    // text with "]]>" takes several. nxErrorEnum::XMLTextNotCarried also for a carriage return, which no
    // section can hold.
    nxErrorEnum SetCDATAValue(std::string_view value);
    nxErrorEnum GetCDATAValue(std::string& value) const;

    nxErrorEnum SetAttribute(std::string_view name, std::string_view value);
    nxErrorEnum SetAttribute(std::string_view name, const char* value);
    nxErrorEnum SetAttribute(std::string_view name, const std::wstring& value);
    nxErrorEnum SetAttribute(std::string_view name, const nxDecimal& value); // with '.'
    // The empty text for an attribute that is not there.
    nxErrorEnum GetAttribute(std::string_view name, std::string& value) const;
    nxErrorEnum GetAttribute(std::string_view name, std::wstring& value) const;
    bool HasAttribute(std::string_view name) const;
    unsigned int GetNumberOfAttributes() const;

    std::string GetName() const; // empty for an invalid handle
    bool HasName(std::string_view name) const;

protected:
    void SetElement(nxXerces::DOMElement* element) { _element = element; }
    nxErrorEnum _SetValue(std::string_view value);
    nxErrorEnum _GetValue(std::string& value) const;
    nxErrorEnum _GetValue(std::wstring& value) const;
    nxErrorEnum _SetAttribute(std::string_view name, std::string_view value);
    nxErrorEnum _GetAttribute(std::string_view name, std::string& value) const;

private:
    bool _Accept(const nxXMLText& text, const char* what);
    nxXMLElement _AddChild(std::string_view name, const nxXMLText* value);
    nxErrorEnum _AddChildValue(std::string_view name, const nxXMLText& value);
    nxErrorEnum _SetText(const nxXMLText& value);
    nxErrorEnum _SetAttributeText(std::string_view name, const nxXMLText& value);

    nxXerces::DOMElement* _element = nullptr;   // not owned
    nxXerces::DOMNode* _currentChild = nullptr; // the cursor; null before the first child
};
