// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The input as a document, and as a text to put into one. What a document takes, it gives back the same.

#include "fuzz/nxFuzz.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <string>

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
