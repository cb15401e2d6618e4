// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLNotes.h"

#include "core/nxNearestName.h"
#include "core/nxStringHelper.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace {
    // Of losses, and of elements that are merely missing: a few bytes can lack what takes kilobytes to say.
    constexpr std::size_t MaxFindings = 100'000;

    bool IsBlank(std::string_view text) {
        return nxStringHelper::Trimmed(text).empty();
    }

    // Nobody would take the digits for null.
    std::string HeldAs(const nxXMLValueDescription& value, std::string held) {
        return !value.null.empty() && held == value.null ? "NULL" : std::move(held);
    }

    // Attributes that say something of the document rather than of the record, as editors leave them.
    bool IsOfDocument(std::string_view attribute) {
        return attribute == "xmlns" || attribute.starts_with("xmlns:") || attribute.starts_with("xml:") ||
               attribute.starts_with("xsi:");
    }
} // namespace

std::string nxXMLNotes::GetShortened(std::string_view text) {
    constexpr std::size_t Longest = 200; // bytes
    return nxStringHelper::GetShortened(text, Longest);
}

void nxXMLNotes::Asks(nxXMLNode parent, Field field) {
    auto& fields = _Of(parent).fields;
    if (std::ranges::find(fields, field.name, &Field::name) == fields.end())
        fields.push_back({std::move(field), {}});
}

void nxXMLNotes::Takes(nxXMLNode parent, std::string_view field, nxXMLNode node, bool readsText) {
    Notes& notes = _Of(node);
    notes.isTaken = true;
    notes.readsText = readsText;
    auto& fields = _Of(parent).fields; // which leaves `notes` where it is
    const auto asked = std::ranges::find(fields, field, &Field::name);
    if (asked == fields.end())
        return;
    const nxXMLNode before = std::exchange(asked->taken, node);
    if (asked->kind == Kind::Items) {
        notes.takenAs = asked->itemNames;
        notes.itemName = asked->name;
    } else if (asked->kind == Kind::Element && before.IsValid())
        _Of(before).supersededBy = "a later one counts";
}

void nxXMLNotes::IsNoValue(nxXMLNode node, std::string_view attribute, const nxXMLValueDescription& expected,
                           std::string held) {
    held = HeldAs(expected, std::move(held));
    Notes& notes = _Of(node);
    if (!attribute.empty()) {
        notes.attributeProblems.push_back({std::string(attribute), expected.GetAsString(), std::move(held)});
        return;
    }
    notes.expected = expected.GetAsString();
    nxNearestName nearest(node.GetText());
    for (const std::string& text : expected.texts)
        nearest.Try(text);
    notes.nearest = nearest.Get();
    notes.held = std::move(held);
}

void nxXMLNotes::IsLeftOut(nxXMLNode item, std::string reason) {
    _Of(item).leftOut = std::move(reason);
}

void nxXMLNotes::HasKey(nxXMLNode item, std::string key) {
    _Of(item).key = std::move(key);
}

void nxXMLNotes::Ends(nxXMLNode parent, std::string reason) {
    std::string& ending = _Of(parent).ending;
    if (ending.empty())
        ending = std::move(reason);
}

// Goes through a tree and says of each element what became of it.
class nxXMLNotes::Reporter {
public:
    Reporter(const nxXMLNotes& notes, const nxXMLTree& tree) : _notes(notes), _tree(tree) {
        for (const nxXMLTree::LostText& lost : tree.GetLostTexts()) {
            if (!IsBlank(lost.text))
                _lostTexts[lost.node.GetIdentity()].push_back(lost.text);
        }
    }

    void Report(std::string_view rootName, nxXMLReport& report) {
        const nxXMLNode root = _tree.GetRoot();
        const std::string path = "/" + GetShortened(root.GetName());
        if (!root.HasName(rootName))
            Add(Kind::UnknownElement, root, path, {}, std::string(rootName));
        VisitTaken(root, path, {});
        Locate();
        for (Located& located : _found)
            report.Add(std::move(located.finding));
    }

private:
    using Kind = nxXMLFinding::Kind;
    using FieldKind = nxXMLNotes::Kind;

    struct Located {
        nxXMLFinding finding;
        const char* position;
    };

    const Notes& NotesOf(nxXMLNode node) const {
        const auto entry = _notes._notes.find(node.GetIdentity());
        return entry != _notes._notes.end() ? entry->second : _none;
    }

    nxXMLFinding& Add(Kind kind, nxXMLNode node, std::string path, const std::string& key,
                      std::string expected = {}) {
        nxXMLFinding finding;
        finding.kind = kind;
        finding.path = std::move(path);
        finding.key = GetShortened(key);
        finding.name = GetShortened(node.GetName());
        finding.expected = std::move(expected);
        std::size_t& count = finding.IsLoss() ? _losses : _missing;
        if (count == MaxFindings)
            return _notKept = std::move(finding);
        ++count;
        _found.push_back({std::move(finding), _tree.GetPosition(node)});
        return _found.back().finding;
    }
    // Where it is, when that can be told more exactly than by its element.
    void PlaceLast(std::string_view text) {
        if (_losses == MaxFindings)
            return; // the last may not have been kept
        text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
        if (const char* const position = _tree.GetPosition(text))
            _found.back().position = position;
    }

    // An element that a field, an item or the record itself is read from.
    void VisitTaken(nxXMLNode node, const std::string& path, const std::string& outerKey) {
        const Notes& notes = NotesOf(node);
        const std::string& key = notes.key.empty() ? outerKey : notes.key;
        ReportItem(node, notes, path, key);
        ReportAttributes(node, notes, path, key);
        ReportText(node, notes, path, key);
        ReportMissing(node, notes, path, key);
        VisitChildren(node, notes, path, key);
    }

    void ReportItem(nxXMLNode node, const Notes& notes, const std::string& path, const std::string& key) {
        if (!notes.leftOut.empty())
            Add(Kind::ItemLeftOut, node, path, key).reason = notes.leftOut;
        if (notes.supersededBy)
            Add(Kind::Repeated, node, path, key).reason = notes.supersededBy;
        if (notes.takenAs == ItemNames::Any && !node.HasName(notes.itemName))
            Add(Kind::NameNotKept, node, path, key, notes.itemName);
        const bool isNamedByKey = notes.takenAs == ItemNames::WithKey && notes.leftOut.empty();
        if (isNamedByKey && node.GetName() != notes.itemName + notes.key)
            Add(Kind::NameNotKept, node, path, key, notes.itemName + notes.key);
    }

    void ReportAttributes(nxXMLNode node, const Notes& notes, const std::string& path,
                          const std::string& key) {
        std::set<std::string_view> names; // of all, once they are asked for
        const auto isThere = [&names, node](std::string_view known) {
            if (names.empty())
                node.ForEachAttribute(
                    [&names](std::string_view name, std::string_view /*value*/) { names.insert(name); });
            return names.contains(known);
        };
        node.ForEachAttribute([&](std::string_view name, std::string_view value) {
            const auto field = std::ranges::find(notes.fields, name, &Field::name);
            if (field != notes.fields.end() && field->kind == FieldKind::Attribute) {
                const auto problem =
                    std::ranges::find(notes.attributeProblems, name, &AttributeProblem::name);
                if (problem == notes.attributeProblems.end())
                    return;
                AddNoValue(node, path + "/@" + GetShortened(name), key, value, *problem).name =
                    GetShortened(name);
                PlaceLast(value);
            } else if (!IsOfDocument(name)) {
                Add(Kind::UnknownAttribute, node, path + "/@" + GetShortened(name), key,
                    Suggest(name, notes, true, isThere))
                    .name = GetShortened(name);
                PlaceLast(name);
            }
        });
    }

    nxXMLFinding& AddNoValue(nxXMLNode node, std::string path, const std::string& key, std::string_view found,
                             const AttributeProblem& problem) {
        nxXMLFinding& finding = Add(Kind::NoValue, node, std::move(path), key, problem.expected);
        finding.found = found;
        finding.held = problem.held;
        return finding;
    }

    void ReportText(nxXMLNode node, const Notes& notes, const std::string& path, const std::string& key) {
        const auto lost = _lostTexts.find(node.GetIdentity());
        if (notes.expected && (node.HasText() || lost == _lostTexts.end())) {
            AddNoValue(node, path, key, node.GetText(), {{}, *notes.expected, notes.held}).reason =
                notes.nearest;
            PlaceLast(node.GetText());
        }
        if (!notes.readsText && !IsBlank(node.GetText()))
            AddLostText(node, path, key, node.GetText());
        if (lost == _lostTexts.end())
            return;
        for (const std::string_view text : lost->second)
            AddLostText(node, path, key, text);
    }

    void AddLostText(nxXMLNode node, const std::string& path, const std::string& key, std::string_view text) {
        Add(Kind::LostText, node, path, key).found = nxStringHelper::Trimmed(text);
        PlaceLast(text);
    }

    void ReportMissing(nxXMLNode node, const Notes& notes, const std::string& path, const std::string& key) {
        if (!notes.leftOut.empty())
            return;
        for (const AskedField& field : notes.fields) {
            if (!field.isAlwaysWritten || IsThere(node, field))
                continue;
            const bool isAttribute = field.kind == FieldKind::Attribute;
            nxXMLFinding& finding =
                Add(Kind::Missing, node, path + (isAttribute ? "/@" : "/") + field.name, key);
            finding.name = field.name;
            finding.held = field.describe ? HeldAs(field.describe(), field.held) : field.held;
        }
    }

    static bool IsThere(nxXMLNode node, const AskedField& field) {
        if (field.kind != FieldKind::Attribute)
            return node.FindChild(field.name).IsValid();
        bool isThere = false;
        node.ForEachAttribute([&](std::string_view name, std::string_view /*value*/) {
            isThere = isThere || name == field.name;
        });
        return isThere;
    }

    void VisitChildren(nxXMLNode node, const Notes& notes, const std::string& path, const std::string& key) {
        struct Count {
            std::size_t all = 0;
            std::size_t seen = 0;
        };
        std::map<std::string_view, Count> counts; // sorted: names could be made for any hash
        for (nxXMLNode child = node.GetFirstChild(); child.IsValid(); child = child.GetNext())
            ++counts[child.GetName()].all;

        for (nxXMLNode child = node.GetFirstChild(); child.IsValid(); child = child.GetNext()) {
            Count& count = counts[child.GetName()];
            std::string childPath = path + "/" + GetShortened(child.GetName());
            if (count.all > 1)
                childPath += "[" + std::to_string(++count.seen) + "]";
            if (NotesOf(child).isTaken)
                VisitTaken(child, childPath, key);
            else
                ReportUntaken(child, notes, std::move(childPath), key,
                              [&counts](std::string_view name) { return counts.contains(name); });
        }
    }

    template <class IsThere>
    void ReportUntaken(nxXMLNode node, const Notes& parentNotes, std::string path, const std::string& key,
                       IsThere isThere) {
        const auto isFor = [node](const AskedField& field) { return Takes(field, node.GetName()); };
        const auto field = std::ranges::find_if(parentNotes.fields, isFor);
        if (field == parentNotes.fields.end())
            Add(Kind::UnknownElement, node, std::move(path), key,
                Suggest(node.GetName(), parentNotes, false, isThere));
        else if (field->kind == FieldKind::Items)
            Add(Kind::ItemLeftOut, node, std::move(path), key).reason = parentNotes.ending;
        else if (field->taken.IsValid())
            Add(Kind::Repeated, node, std::move(path), key).reason = "another one counts";
        else
            Add(Kind::NotReached, node, std::move(path), key).reason =
                parentNotes.ending.empty() ? "it stands before another that it belongs behind"
                                           : parentNotes.ending;
    }

    static bool Takes(const AskedField& field, std::string_view name) {
        const bool isLonger = name.size() > field.name.size() && name.starts_with(field.name);
        switch (field.kind) {
        case FieldKind::Attribute:
            return false;
        case FieldKind::Items:
            return field.itemNames == ItemNames::WithKey || field.itemNames == ItemNames::WithNumber
                       ? isLonger
                       : name == field.name;
        default:
            return name == field.name;
        }
    }

    // The known name that is most like an unknown one. Empty when none is.
    template <class IsThere>
    static std::string Suggest(std::string_view name, const Notes& notes, bool isAttribute, IsThere isThere) {
        // Behind an item's name stands its key, which is its own.
        const std::size_t dash = std::min(name.find('-'), name.size() - 1) + 1;
        nxNearestName nearest(name); // that is not there
        nxNearestName nearestOfAll(name);
        nxNearestName nearestItem(name.substr(0, dash));
        for (const AskedField& field : notes.fields) {
            if ((field.kind == FieldKind::Attribute) != isAttribute)
                continue;
            if (field.itemNames == ItemNames::WithKey || field.itemNames == ItemNames::WithNumber) {
                nearestItem.Try(field.name);
                continue;
            }
            nearestOfAll.Try(field.name);
            if (field.kind == FieldKind::Items || !isThere(field.name))
                nearest.Try(field.name);
        }
        for (const nxNearestName* found : {&nearest, &nearestOfAll}) {
            if (!found->Get().empty())
                return std::string(found->Get());
        }
        return nearestItem.Get().empty() ? std::string()
                                         : std::string(nearestItem.Get()).append(name.substr(dash));
    }

    // Gives each finding its line and column, in one way through the text.
    void Locate() {
        std::stable_sort(_found.begin(), _found.end(), [](const Located& left, const Located& right) {
            return std::less<>()(left.position, right.position);
        });
        nxXMLPlaces places(_tree.GetSource());
        for (auto& [finding, position] : _found) {
            const nxXMLPlace place = position ? places.Of(position) : nxXMLPlace();
            finding.line = place.line;
            finding.column = place.column;
        }
    }

    const Notes _none;
    const nxXMLNotes& _notes;
    const nxXMLTree& _tree;
    std::unordered_map<const void*, std::vector<std::string_view>> _lostTexts;
    std::vector<Located> _found;
    std::size_t _losses = 0; // among them
    std::size_t _missing = 0;
    nxXMLFinding _notKept; // the last of those that are too many
};

void nxXMLNotes::Report(const nxXMLTree& tree, std::string_view root, nxXMLReport& report) const {
    Reporter(*this, tree).Report(root, report);
}
