// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// A user string of Kestrum. Its pairs make the same string again, a document carries it, and the parameters
// that a spec makes of it are written to a string that reads and writes back the same.

#include "fuzz/nxFuzz.h"
#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"
#include "xmlFramework/kestrum/nxKestrumUserString.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {
    using nxFuzz::Require;

    // One script parameter of each type, called "a", "b" and so on.
    nxKestrumAlgorithmSpec MakeSpec() {
        nxKestrumAlgorithmSpec spec;
        std::string name = "a";
        for (const nxEnumRow& row : nxKestrumParameterTypeEnum::Rows()) {
            const nxKestrumParameterTypeEnum type(row.value);
            if (type.IsUndefined() || type.IsNoChange())
                continue;
            Require(spec.AddScriptParameterDefinition(nxKestrumParameterDefinition(name, type, true)));
            ++name.front();
        }
        return spec;
    }

    class Parameters {
    public:
        nxErrorEnum Read(const nxKestrumAlgorithmSpec& spec, const std::string& text) {
            std::vector<nxKestrumParameter*> read;
            const nxErrorEnum result = spec.ExtractParametersFromUserString(text, read);
            for (nxKestrumParameter* const parameter : read)
                _owned.emplace_back(parameter);
            return result;
        }
        std::string Written() const {
            std::vector<nxKestrumParameter*> parameters;
            for (const auto& parameter : _owned)
                parameters.push_back(parameter.get());
            std::string text;
            Require(nxKestrumAlgorithmSpec::AddParametersToUserString(parameters, text).IsOK());
            return text;
        }

    private:
        std::vector<std::unique_ptr<nxKestrumParameter>> _owned;
    };

    void CheckPairs(const std::string& text) {
        std::string again;
        std::map<std::string, std::string> last;
        const nxErrorEnum result = nxKestrumUserString::ForEachPair(
            text, [&](const std::string& name, const std::string& value) -> nxErrorEnum {
                nxKestrumUserString::AppendPair(again, name, value);
                last[name] = value;
                return nxErrorEnum::OK;
            });
        Require(result.IsOK() ? again == text
                              : result == nxErrorEnum(nxErrorEnum::InvalidData) && text.starts_with(again));

        std::map<std::string, std::string> extracted;
        Require(nxKestrumAlgorithmSpec::ExtractParametersFromUserString(text, extracted) == result &&
                extracted == last);
    }

    void CheckDocumentForm(const std::string& text) {
        const std::string carried = nxKestrumUserString::ToDocument(text);
        Require(carried.find('\x01') == std::string::npos);
        if (text.find("^^|") == std::string::npos)
            Require(nxKestrumUserString::FromDocument(carried) == text);
    }

    void CheckParameters(const nxKestrumAlgorithmSpec& spec, const std::string& text) {
        Parameters parameters;
        const nxErrorEnum result = parameters.Read(spec, text);
        const std::string written = parameters.Written();
        Parameters again;
        Require(again.Read(spec, written).IsOK() && again.Written() == written);
        Require(result.IsOK() || result == nxErrorEnum(nxErrorEnum::InvalidData) ||
                result == nxErrorEnum(nxErrorEnum::ValueNotParsed));
    }
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const nxKestrumAlgorithmSpec spec = MakeSpec();
    const std::string text(reinterpret_cast<const char*>(data), size);
    CheckPairs(text);
    CheckDocumentForm(text);
    CheckParameters(spec, text);
    return 0;
}
