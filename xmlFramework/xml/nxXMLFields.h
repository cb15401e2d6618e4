// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxDecimal.h"
#include "core/nxStringHelper.h"
#include "core/nxTime.h"
#include "include/nxErrorEnum.h"
#include "include/nxValueWrapper.h"
#include "include/nxWriteLog.h"
#include "xmlFramework/xml/nxXMLDescription.h"
#include "xmlFramework/xml/nxXMLItem.h"
#include "xmlFramework/xml/nxXMLNotes.h"
#include "xmlFramework/xml/nxXMLSink.h"
#include "xmlFramework/xml/nxXMLTree.h"

#include <concepts>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

// The verbs with which records read and write their fields. For records: see nxXMLRecord.h.
//
// A record states its fields once, in the order of its document, as a function that hands each field's name
// and member to a visitor:
//
//     template <class Record, class Visitor>
//     static void Visit(Record& record, Visitor&& field) {
//         field("Name", record._name);
//         field("IsActive", record._isActive);
//         field("Limits", ListOf("Limit", record._limits));
//     }
//
// and reads and writes itself by visiting with a reader or a writer from here. A field is a child element
// with a text unless its type says otherwise, by being wrapped on the spot: lists stand in nxXMLLists.h, and
// the concepts below say what a wrapper of a record's own may do.
namespace nxXMLFields {
    // A field with a text form of its own.
    template <class T>
    concept WritesText = requires(const T& field, std::string& text) {
        field.AppendText(text);
    };
    template <class T>
    concept ReadsText = requires(T& field, std::string_view text) {
        { field.FromText(text) } -> std::same_as<nxErrorEnum>;
    };
    // A field that is more than a text: it reads its element, and writes itself, whatever that takes.
    template <class T>
    concept ReadsNode = requires(T& field, const nxXMLNode& node, const nxXMLReadContext& context) {
        { field.ReadFrom(node, context) } -> std::same_as<nxErrorEnum>;
    };
    template <class T>
    concept WritesItself = requires(const T& field, nxXMLSink& sink, std::string_view name) {
        field.WriteTo(sink, name);
    };
    // A field that is not one child: it is read from the element in which the children of its name stand.
    template <class T>
    concept ReadsParent = requires(T& field, const nxXMLNode& parent, std::string_view name,
                                   const nxXMLReadContext& context) {
        { field.ReadFrom(parent, name, context) } -> std::same_as<nxErrorEnum>;
    };
    // A field that is not always written.
    template <class T>
    concept HasCondition = requires(const T& field) {
        { field.IsWritten() } -> std::same_as<bool>;
    };
    // A field whose failure is its record's: see Required. For lists, no element is no failure.
    template <class T>
    concept IsRequired = T::IsRequired;
    template <class T>
    concept IsList = T::IsList;
    // A field that is never written.
    template <class T>
    constexpr bool IsReadOnly = requires {
        requires T::IsReadOnly;
    };
    template <class T>
    constexpr bool IsAttribute = requires {
        requires T::IsAttribute;
    };
    // A field that says itself what its text may be.
    template <class T>
    concept DescribesItself = requires {
        { T::DescribeValue() } -> std::same_as<nxXMLValueDescription>;
    };
    // A field that is made of a list.
    template <class T>
    concept WrapsList = requires(const T& field) {
        field.GetList().GetItemName();
    };

    // Handed along with a field: it tells an item from the others of its list.
    struct Key {};
    template <class... Traits>
    constexpr bool HasKey = (std::derived_from<Traits, Key> || ...);

    // ---- The text of a value in a document

    inline void AppendText(std::string& text, const nxDecimal& value) {
        value.AppendAsString(text, '.');
    }
    // The plain number, null and no-change as their reserved values.
    template <class T, T Null, T NoChange>
    void AppendText(std::string& text, const nxValueWrapper<T, Null, NoChange>& value) {
        nxStringHelper::AppendAsString(text, static_cast<T>(value));
    }
    template <WritesText T>
    void AppendText(std::string& text, const T& value) {
        value.AppendText(text);
    }
    template <class T>
    void AppendText(std::string& text, const T& value) {
        nxStringHelper::AppendAsString(text, value);
    }

    // What a text in a document may be that stands for a value.
    template <class T>
    nxXMLValueDescription DescribeNumber(std::vector<std::string> texts = {}) {
        using Limits = std::numeric_limits<T>;
        return {nxXMLValueDescription::Type::Number, nxStringHelper::GetAsString(Limits::min()),
                nxStringHelper::GetAsString(Limits::max()), std::move(texts)};
    }
    // A number with states, which stand in documents as their reserved values.
    template <class Wrapper>
    nxXMLValueDescription DescribeNumberWithStates(std::vector<std::string> texts = {}) {
        using Number = std::remove_const_t<decltype(Wrapper::NullValue)>;
        nxXMLValueDescription description = DescribeNumber<Number>(std::move(texts));
        description.null = nxStringHelper::GetAsString(Wrapper::NullValue);
        description.noChange = nxStringHelper::GetAsString(Wrapper::NoChangeValue);
        return description;
    }
    inline nxXMLValueDescription DescribeEnumeration(std::span<const nxEnumRow> rows,
                                                     std::string_view nxEnumRow::*text = &nxEnumRow::name) {
        nxXMLValueDescription description{nxXMLValueDescription::Type::Enumeration, {}, {}, {}};
        for (const nxEnumRow& row : rows)
            description.texts.emplace_back(row.*text);
        return description;
    }

    template <class T>
    struct ValueOf { // a text
        static nxXMLValueDescription Describe() {
            if constexpr (DescribesItself<T>)
                return T::DescribeValue();
            else if constexpr (std::same_as<T, bool>)
                return {nxXMLValueDescription::Type::Flag, {}, {}, {}};
            else if constexpr (std::integral<T>)
                return DescribeNumber<T>();
            else if constexpr (std::derived_from<T, nxEnum>)
                return DescribeEnumeration(T::Rows());
            else if constexpr (std::same_as<T, nxDecimal>)
                return {nxXMLValueDescription::Type::Decimal, {}, {}, {}};
            else if constexpr (std::same_as<T, nxTime>)
                return {nxXMLValueDescription::Type::Time, {}, {}, {}};
            else {
                static_assert(std::convertible_to<T, std::string_view>, "say what the field's text may be");
                return {};
            }
        }
    };
    template <class T, T Null, T NoChange>
    struct ValueOf<nxValueWrapper<T, Null, NoChange>> {
        static nxXMLValueDescription Describe() {
            return DescribeNumberWithStates<nxValueWrapper<T, Null, NoChange>>({"NULL", "NO_CHANGE"});
        }
    };

    // The value that a text in a document stands for. On failure the value is untouched.
    inline nxErrorEnum FromText(std::string_view text, nxDecimal& value) {
        return value.SetFromString(text, '.');
    }
    inline nxErrorEnum FromText(std::string_view text, std::string& value) {
        value = text;
        return nxErrorEnum::OK;
    }
    // Of a record that is used up before the tree ends.
    inline nxErrorEnum FromText(std::string_view text, std::string_view& value) {
        value = text;
        return nxErrorEnum::OK;
    }
    template <class T, T Null, T NoChange>
    nxErrorEnum FromText(std::string_view text, nxValueWrapper<T, Null, NoChange>& value) {
        return value.SetFromString(text);
    }
    template <ReadsText T>
    nxErrorEnum FromText(std::string_view text, T& value) {
        return value.FromText(text);
    }
    template <class T>
    nxErrorEnum FromText(std::string_view text, T& value) {
        return nxStringHelper::SetFromString(text, value);
    }

    // ---- One field

    // Reads an element into a field. On failure the field is untouched: nxErrorEnum::ValueNotFound without an
    // element, or without a text, nxErrorEnum::ValueNotParsed for a text that is no value of the field's
    // type.
    template <class T>
    nxErrorEnum ReadValue(const nxXMLNode& node, T&& field, const nxXMLReadContext& context) {
        using Field = std::remove_cvref_t<T>;
        if (!node.IsValid())
            return IsList<Field> ? nxErrorEnum::OK : nxErrorEnum::ValueNotFound;
        if constexpr (ReadsNode<Field>)
            return field.ReadFrom(node, context);
        else
            return node.HasText() ? FromText(node.GetText(), field) : nxErrorEnum(nxErrorEnum::ValueNotFound);
    }

    // A field that must be there: its failure is the result of the record, and once there is one, no further
    // required field is read or written.
    template <class T>
    class Required {
    public:
        static constexpr bool IsRequired = true;
        static constexpr bool IsAttribute = nxXMLFields::IsAttribute<std::remove_cvref_t<T>>;

        explicit Required(T&& value) : _value(std::forward<T>(value)) {}

        nxErrorEnum ReadFrom(const nxXMLNode& node, const nxXMLReadContext& context) {
            return ReadValue(node, _value, context);
        }
        nxErrorEnum ReadFrom(const nxXMLNode& parent, std::string_view name,
                             const nxXMLReadContext& context) requires ReadsParent<std::remove_cvref_t<T>> {
            return _value.ReadFrom(parent, name, context);
        }
        const std::remove_cvref_t<T>& Get() const { return _value; }
        static nxXMLValueDescription DescribeValue() { return ValueOf<std::remove_cvref_t<T>>::Describe(); }

    private:
        T _value;
    };
    template <class T>
    Required(T&&) -> Required<T>;

    // Hands on what the record holds, as its document would say it; nothing for a list.
    template <class T, class Use>
    auto WithText(const T& field, Use use) {
        if constexpr (HasCondition<T>) {
            if (!field.IsWritten())
                return use(std::string_view());
        }
        if constexpr (IsRequired<T>)
            return WithText(field.Get(), use);
        else if constexpr (IsList<T>)
            return use(std::string_view());
        else if constexpr (std::convertible_to<const T&, std::string_view>)
            return use(std::string_view(field));
        else {
            std::string text;
            AppendText(text, field);
            return use(std::string_view(text));
        }
    }
    template <class T>
    std::string TextOf(const T& field) {
        return WithText(field, [](std::string_view text) { return std::string(text); });
    }
    template <class T>
    bool HasText(const T& field, std::string_view text) {
        return WithText(field, [text](std::string_view held) { return held == text; });
    }
    template <class T>
    std::string HeldText(const T& field) {
        return WithText(field, [](std::string_view text) { return nxXMLNotes::GetShortened(text); });
    }

    // An attribute of the record's own element. One that is not there reads as the empty text.
    template <class T>
    class Attribute {
    public:
        static constexpr bool IsAttribute = true;

        explicit Attribute(T& value) : _value(value) {}

        nxErrorEnum ReadFrom(const nxXMLNode& parent, std::string_view name,
                             const nxXMLReadContext& context) {
            const nxErrorEnum result = FromText(parent.GetAttribute(name), _value);
            if (context.notes) [[unlikely]]
                Note(parent, name, *context.notes, result);
            return result;
        }
        void WriteTo(nxXMLSink& sink, std::string_view name) const {
            if constexpr (std::convertible_to<T, std::string_view>)
                sink.Attribute(name, _value);
            else {
                std::string text;
                nxXMLFields::AppendText(text, _value);
                sink.Attribute(name, text);
            }
        }
        void AppendText(std::string& text) const { text += TextOf(_value); }
        static nxXMLValueDescription DescribeValue() { return ValueOf<std::remove_const_t<T>>::Describe(); }

    private:
        void Note(const nxXMLNode& parent, std::string_view name, nxXMLNotes& notes,
                  const nxErrorEnum& result) const {
            if (!result.IsOK())
                notes.IsNoValue(parent, name, DescribeValue(), HeldText(_value));
        }

        T& _value;
    };

    // A number that becomes null when its text is malformed, "NULL" and "NO_CHANGE" included: documents hold
    // the digits of the reserved values. A missing child still leaves it as it was.
    template <class Wrapper>
    class NullIfMalformed {
    public:
        explicit NullIfMalformed(Wrapper& value) : _value(value) {}

        void AppendText(std::string& text) const { nxXMLFields::AppendText(text, _value); }
        nxErrorEnum FromText(std::string_view text) {
            auto number = Wrapper::NullValue;
            const nxErrorEnum result = nxStringHelper::SetFromString(text, number);
            _value = result.IsOK() ? number : Wrapper::NullValue;
            return result;
        }
        static nxXMLValueDescription DescribeValue() { return DescribeNumberWithStates<Wrapper>(); }

    private:
        Wrapper& _value;
    };

    // ---- Visitors

    // What becomes of the other fields once a required field or an item of a list has failed.
    enum class AfterFailure { GoOn, Stop };

    // Writes each field. The sink keeps what could not be carried.
    class Writer {
    public:
        explicit Writer(nxXMLSink& sink, AfterFailure afterFailure = AfterFailure::GoOn)
            : _sink(sink), _afterFailure(afterFailure) {}

        template <class T, class... Traits>
        void operator()(std::string_view name, const T& field, const Traits&... /*traits*/) {
            if (!_sink.IsOK() && (IsRequired<T> || _afterFailure == AfterFailure::Stop))
                return;
            if constexpr (IsRequired<T>)
                Write(name, field.Get());
            else
                Write(name, field);
        }

    private:
        template <class T>
        void Write(std::string_view name, const T& field) {
            if constexpr (HasCondition<T>) {
                if (!field.IsWritten())
                    return;
            }
            if constexpr (requires { field.WriteTo(_sink, name, _afterFailure); })
                field.WriteTo(_sink, name, _afterFailure);
            else if constexpr (WritesItself<T>)
                field.WriteTo(_sink, name);
            else if constexpr (std::convertible_to<const T&, std::string_view>)
                _sink.Field(name, field);
            else {
                _text.clear();
                AppendText(_text, field);
                _sink.Field(name, _text);
            }
        }

        nxXMLSink& _sink;
        AfterFailure _afterFailure;
        std::string _text; // of the value at hand
    };

    // ---- Readers
    //
    // What a reader does it tells a listener: nobody mostly, at no cost, or one who notes it.

    struct Silence {
        static constexpr bool Listens = false;
    };
    struct Noting {
        static constexpr bool Listens = true;
    };

    // What came of reading a record's fields.
    class Outcome {
    public:
        // That of the first required field, or item of a list, that failed.
        const nxErrorEnum& GetResult() const { return _result; }
        // Logs `message` with the field that failed and why, if one did.
        const nxErrorEnum& GetResultLogged(const nxLogSite& site, const char* message) const {
            if (!_result.IsOK())
                nxWriteLog(
                    site, message, [this] { return std::string(_failed); }, ": ",
                    [this] { return _result.GetShortDescription(); });
            return _result;
        }
        void Fail(const nxErrorEnum& result, std::string_view field) {
            _result = result;
            _failed = field;
        }

    private:
        nxErrorEnum _result;
        std::string_view _failed;
    };

    // What the readers have in common: reads one field from the node that was found for it.
    template <class Listener>
    class FieldReader {
    public:
        explicit FieldReader(const nxXMLNode& parent, const nxXMLReadContext& context,
                             AfterFailure afterFailure = AfterFailure::GoOn)
            : _parent(parent), _context(context), _afterFailure(afterFailure) {}

        const Outcome& GetOutcome() const { return _outcome; }

    protected:
        template <class T>
        static constexpr bool Counts = IsRequired<T> || IsList<T>;

        const nxXMLNode& GetParent() const { return _parent; }

        template <class T>
        bool IsWanted() const {
            return _outcome.GetResult().IsOK() || (!Counts<T> && _afterFailure == AfterFailure::GoOn);
        }
        // To be called for every field, whether or not it is going to be read.
        template <class T>
        void Ask(std::string_view name, const T& field) {
            if constexpr (!Listener::Listens || (IsList<T> && ReadsParent<T>)) // which asks itself
                return;
            else {
                bool isWritten = true;
                if constexpr (HasCondition<T>)
                    isWritten = field.IsWritten();
                const auto kind = IsAttribute<T> ? nxXMLNotes::Kind::Attribute
                                  : IsList<T>    ? nxXMLNotes::Kind::List
                                                 : nxXMLNotes::Kind::Element;
                nxXMLNotes::Field asked{std::string(name), kind, {}, isWritten, HeldText(field)};
                if constexpr (!IsList<T>)
                    asked.describe = &ValueOf<T>::Describe;
                _context.notes->Asks(_parent, std::move(asked));
            }
        }
        template <class... Traits, class T>
        void Read(const nxXMLNode& node, std::string_view name, T& field) {
            const nxErrorEnum result = ReadValue(node, field, _context);
            if constexpr (Listener::Listens) {
                if (node.IsValid())
                    Note(node, name, field, result, HasKey<Traits...>);
            }
            Take<T>(result, name);
        }
        template <class... Traits, class T>
        void ReadFromParent(std::string_view name, T& field) {
            const nxErrorEnum result = field.ReadFrom(_parent, name, _context);
            if constexpr (Listener::Listens && HasKey<Traits...>)
                _context.notes->HasKey(_parent, TextOf(field));
            Take<T>(result, name);
        }

    private:
        template <class T>
        void Note(const nxXMLNode& node, std::string_view name, const T& field, const nxErrorEnum& result,
                  bool isKey) {
            nxXMLNotes& notes = *_context.notes;
            notes.Takes(_parent, name, node, !IsList<T>);
            if constexpr (!IsList<T>) {
                // A text that cannot be read leaves the one before, which may be long, and the next one
                // again.
                if (isKey && (result.IsOK() || !std::convertible_to<const T&, std::string_view>))
                    notes.HasKey(_parent, TextOf(field));
                if (!result.IsOK() && !HasText(field, node.GetText()))
                    notes.IsNoValue(node, {}, ValueOf<T>::Describe(), HeldText(field));
            }
        }

        template <class T>
        void Take(const nxErrorEnum& result, std::string_view name) {
            if (!Counts<T> || result.IsOK())
                return;
            _outcome.Fail(result, name);
            if constexpr (Listener::Listens)
                _context.notes->Ends(_parent,
                                     "what stands before it could not be read: '" + std::string(name) + "'");
        }

        const nxXMLNode _parent;
        const nxXMLReadContext& _context;
        AfterFailure _afterFailure;
        Outcome _outcome;
    };

    // Reads each field from the first child of its name. No two fields have one name.
    template <class Listener = Silence>
    class Reader : public FieldReader<Listener> {
    public:
        explicit Reader(const nxXMLNode& parent, const nxXMLReadContext& context,
                        AfterFailure afterFailure = AfterFailure::GoOn)
            : FieldReader<Listener>(parent, context, afterFailure), _next(parent.GetFirstChild()) {}

        template <class T, class... Traits>
        void operator()(std::string_view name, T&& field, const Traits&... /*traits*/) {
            using Field = std::remove_cvref_t<T>;
            this->Ask(name, field);
            if (!this->template IsWanted<Field>())
                return;
            if constexpr (ReadsParent<Field>)
                this->template ReadFromParent<Traits...>(name, field);
            else
                this->template Read<Traits...>(Find(name), name, field);
        }

    private:
        nxXMLNode Find(std::string_view name) {
            if (!_next.HasName(name))
                return this->GetParent().FindChild(name);
            const nxXMLNode found = _next;
            _next = _next.GetNext();
            return found;
        }

        // Documents mostly have their children in the fields' order. All children before this one were those
        // of other fields, so this one is the first of its name.
        nxXMLNode _next;
    };

    // Reads each field from the next child of that name behind the child that it found before, or from the
    // first one where it found none before.
    template <class Listener = Silence>
    class NextReader : public FieldReader<Listener> {
    public:
        explicit NextReader(const nxXMLNode& parent, const nxXMLReadContext& context,
                            AfterFailure afterFailure = AfterFailure::GoOn)
            : FieldReader<Listener>(parent, context, afterFailure) {}

        template <class T, class... Traits>
        void operator()(std::string_view name, T&& field, const Traits&... /*traits*/) {
            this->Ask(name, field);
            _found = _found.IsValid() ? _found.FindNext(name) : this->GetParent().FindChild(name);
            this->template Read<Traits...>(_found, name, field);
        }

    private:
        nxXMLNode _found;
    };

    // Reads each child, in the document's order, into the field of its name.
    template <class Listener = Silence>
    class Walk : public FieldReader<Listener> {
    public:
        explicit Walk(const nxXMLNode& parent, const nxXMLReadContext& context, AfterFailure afterFailure)
            : FieldReader<Listener>(parent, context, afterFailure), _child(parent.GetFirstChild()) {}

        // A round through the fields takes every child that stands in the fields' order, so documents as
        // records write them need one round.
        template <class VisitFields>
        void ReadAll(VisitFields visitFields) {
            if (Listener::Listens && !_child.IsValid())
                visitFields(*this); // who listens wants to know what is asked for
            while (_child.IsValid()) {
                const nxXMLNode before = _child;
                visitFields(*this);
                if (_child == before) // no field has that name
                    _child = _child.GetNext();
            }
        }

        template <class T, class... Traits>
        void operator()(std::string_view name, T&& field, const Traits&... /*traits*/) {
            this->Ask(name, field);
            for (; _child.HasName(name); _child = _child.GetNext()) {
                if (this->template IsWanted<std::remove_cvref_t<T>>())
                    this->template Read<Traits...>(_child, name, field);
            }
        }

    private:
        nxXMLNode _child;
    };

    template <template <class> class Reader, class Read>
    [[gnu::cold, gnu::noinline]] Outcome ReadNoting(const nxXMLNode& parent, const nxXMLReadContext& context,
                                                    AfterFailure afterFailure, Read read) {
        Reader<Noting> reader(parent, context, afterFailure);
        read(reader);
        return reader.GetOutcome();
    }
    // Has a reader read, a silent one unless somebody listens. What notes is cold, so that the compiler
    // spends its inlining on the other.
    template <template <class> class Reader, class Read>
    Outcome ReadWith(const nxXMLNode& parent, const nxXMLReadContext& context, AfterFailure afterFailure,
                     Read read) {
        if (context.notes) [[unlikely]]
            return ReadNoting<Reader>(parent, context, afterFailure, read);
        Reader<Silence> reader(parent, context, afterFailure);
        read(reader);
        return reader.GetOutcome();
    }

    // The three ways in which records read their fields. `visitFields` hands the fields to the visitor that
    // it is given. A field without a child, or with one that has no text or a malformed one, keeps its value.

    // Each field from the first child of its name.
    template <class VisitFields>
    Outcome ReadFirst(const nxXMLNode& parent, const nxXMLReadContext& context, VisitFields visitFields,
                      AfterFailure afterFailure = AfterFailure::GoOn) {
        return ReadWith<Reader>(parent, context, afterFailure, visitFields);
    }

    // Each field from the next child of its name, behind that of the field before.
    template <class VisitFields>
    Outcome ReadNext(const nxXMLNode& parent, const nxXMLReadContext& context, VisitFields visitFields) {
        return ReadWith<NextReader>(parent, context, AfterFailure::GoOn, visitFields);
    }

    // Each child into the field of its name, so the last of several wins; children of other names are
    // skipped. The result is that of the first item of a list that failed.
    template <class VisitFields>
    nxErrorEnum ReadInDocumentOrder(const nxXMLNode& parent, const nxXMLReadContext& context,
                                    VisitFields visitFields) {
        return ReadWith<Walk>(parent, context, AfterFailure::GoOn,
                              [visitFields](auto& walk) { walk.ReadAll(visitFields); })
            .GetResult();
    }

    // Describes each field. What the record holds makes no difference.
    class Describer {
    public:
        template <class T, class... Traits>
        void operator()(std::string_view name, const T& field, const Traits&... /*traits*/) {
            nxXMLFieldDescription description;
            description.isKey = HasKey<Traits...>;
            if constexpr (WrapsList<T>)
                AddList(name, field.GetList(), std::move(description));
            else if constexpr (IsList<T>)
                AddList(name, field, std::move(description));
            else
                AddText<T>(name, std::move(description));
        }

        std::vector<nxXMLFieldDescription> Take() { return std::move(_fields); }

    private:
        template <class T>
        void AddText(std::string_view name, nxXMLFieldDescription description) {
            using Kind = nxXMLFieldDescription::Kind;
            description.name = name;
            description.kind = IsAttribute<T> ? Kind::Attribute : Kind::Element;
            description.value = ValueOf<T>::Describe();
            description.isRequired = IsRequired<T>;
            description.isReadOnly = IsReadOnly<T>;
            description.isAlwaysWritten = !HasCondition<T>;
            _fields.push_back(std::move(description));
        }
        template <class List>
        void AddList(std::string_view name, const List& list, nxXMLFieldDescription description) {
            using Item = typename List::Item;
            using Kind = nxXMLFieldDescription::Kind;
            description.kind = List::IsInline ? Kind::Items : Kind::List;
            description.isAlwaysWritten = !List::IsInline;
            if constexpr (List::IsInline)
                description.itemName = name;
            else {
                description.name = name;
                description.itemName = list.GetItemName();
            }
            description.itemNames = List::Kind::ItemNames;
            description.endsAtOthers = List::Kind::EndsAtOthers;
            if constexpr (!std::same_as<Item, std::string>)
                description.itemFields = nxXMLItem::Describe<Item>();
            _fields.push_back(std::move(description));
        }

        std::vector<nxXMLFieldDescription> _fields;
    };

    // What `visitFields` hands to the visitor it is given.
    template <class VisitFields>
    std::vector<nxXMLFieldDescription> Describe(VisitFields visitFields) {
        Describer describer;
        visitFields(describer);
        return describer.Take();
    }
} // namespace nxXMLFields
