// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The input as a document, and as a text to put into one. What a document takes, it gives back the same; all
// ways to its elements lead to the same ones; what is added to them is there when it is loaded again.

#include "fuzz/nxFuzz.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <string>
#include <vector>

namespace {
    using nxFuzz::Require;

    bool Is(const nxErrorEnum& result, unsigned int code) {
        return result == nxErrorEnum(code);
    }

    std::string Resaved(const std::string& xml) {
        nxXMLDocument document;
        Require(document.LoadFromString(xml).IsOK());
        std::string saved;
        Require(document.SaveToString(saved).IsOK());
        return saved;
    }

    // All elements of a document that was saved, and so is no deeper than that allows, in its order.
    void Collect(nxXMLElement element, std::vector<nxXMLElement>& elements) {
        elements.push_back(element);
        nxXMLElement found;
        for (nxXMLElement child = element.GetFirstChildElement(); child.IsValid();
             child = element.GetNextChildElement()) {
            // By its name and the one of that name before it.
            nxXMLElement named = element.FindChildElement(child.GetName());
            Require(named.IsValid() && child.HasName(named.GetName()));
            if (found.IsValid() && found.HasName(child.GetName()))
                named = element.FindNextChildElement(child.GetName(), found);
            else
                while (named.IsValid() && named.GetElement() != child.GetElement())
                    named = element.FindNextChildElement(child.GetName(), named);
            Require(named.GetElement() == child.GetElement());
            found = child;
            Collect(child, elements);
        }
    }

    std::vector<nxXMLElement> ElementsOf(const nxXMLDocument& document) {
        std::vector<nxXMLElement> elements;
        Collect(document.GetRootElement(), elements);
        return elements;
    }

    // Adds to each element and finds it there.
    void CheckEditing(const std::string& xml) {
        constexpr char Name[] = "nx-added"; // which no input has
        if (xml.find(Name) != std::string::npos)
            return;
        nxXMLDocument document;
        Require(document.LoadFromString(xml).IsOK());
        const std::vector<nxXMLElement> elements = ElementsOf(document);
        for (nxXMLElement element : elements) {
            const std::string text = element.GetTextValue();
            Require(element.SetAttribute(Name, text).IsOK() && element.AddChildValue(Name, text).IsOK());
        }

        std::string saved;
        if (const nxErrorEnum result = document.SaveToString(saved); !result.IsOK()) {
            Require(Is(result, nxErrorEnum::XMLTooDeep)); // by what was added
            return;
        }
        nxXMLDocument again;
        Require(again.LoadFromString(saved).IsOK());
        std::size_t count = 0;
        for (const nxXMLElement& element : ElementsOf(again)) {
            if (element.HasName(Name))
                continue;
            std::string text;
            Require(element.GetAttribute(Name, text).IsOK());
            Require(element.FindChildElement(Name).GetTextValue() == text);
            Require(element.GetNumberOfAttributes() == elements[count].GetNumberOfAttributes() &&
                    element.HasName(elements[count].GetName()) && elements[count].GetTextValue() == text);
            ++count;
        }
        Require(count == elements.size());
    }

    void CheckAsDocument(const std::string& input) {
        nxXMLDocument document;
        const nxErrorEnum loaded = document.LoadFromString(input);
        Require(document.GetRootElement().IsValid() == loaded.IsOK());
        std::string saved = "untouched";
        if (!loaded.IsOK()) {
            Require(Is(loaded, nxErrorEnum::XMLParseFailed));
            Require(Is(document.SaveToString(saved), nxErrorEnum::XMLDocumentMissing) &&
                    saved == "untouched");
            return;
        }
        if (const nxErrorEnum result = document.SaveToString(saved); !result.IsOK()) {
            // XML 1.1 carries more than is saved.
            Require(Is(result, nxErrorEnum::XMLTooDeep) || Is(result, nxErrorEnum::XMLTextNotCarried));
            Require(saved == "untouched");
            return;
        }
        Require(Resaved(saved) == saved);
        CheckEditing(saved);
    }

    void CheckAsText(const std::string& input) {
        nxXMLDocument document;
        Require(document.CreateDocument("r").IsOK());
        nxXMLElement root = document.GetRootElement();
        const nxErrorEnum result = root.SetAttribute("a", input);
        Require(result.IsOK() || Is(result, nxErrorEnum::XMLTextNotCarried));
        Require(root.AddChildValue("t", input) == result);
        const nxErrorEnum section = root.AddChildElement("c").SetCDATAValue(input);
        Require(result.IsOK() ? section.IsOK() || input.find('\r') != std::string::npos : section == result);

        std::string saved = "untouched";
        const nxErrorEnum saving = document.SaveToString(saved);
        Require(saving.IsOK() == section.IsOK());
        if (!saving.IsOK()) {
            Require(Is(saving, nxErrorEnum::XMLTextNotCarried) && saved == "untouched");
            return;
        }
        nxXMLDocument read;
        Require(read.LoadFromString(saved).IsOK());
        std::string value;
        Require(read.GetRootElement().GetAttribute("a", value).IsOK() && value == input);
        Require(read.GetRootElement().FindChildElement("t").GetTextValue() == input);
        Require(read.GetRootElement().FindChildElement("c").GetCDATAValue(value).IsOK() && value == input);
    }
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    CheckAsDocument(input);
    CheckAsText(input);
    return 0;
}
