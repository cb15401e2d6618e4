// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// How an algorithm spec finds its definitions while a caller changes them, by references and pointers that it
// got earlier.

#include "tests/support/nxInThreads.h"
#include "tests/support/nxIsSanitized.h"
#include "tests/support/nxMilliseconds.h"
#include "tests/support/nxRandomText.h"
#include "tests/support/nxRecordText.h"
#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <functional>
#include <latch>
#include <memory>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace {
    using namespace nxRecordText;
    using Spec = nxKestrumAlgorithmSpec;
    using Definition = nxKestrumParameterDefinition;
    using Definitions = Spec::Definitions;
    using Type = nxKestrumParameterTypeEnum;

    template <class Record>
    constexpr bool MovesWithoutFailure =
        std::is_nothrow_move_constructible_v<Record>&& std::is_nothrow_move_assignable_v<Record>;
    static_assert(MovesWithoutFailure<Definition> && MovesWithoutFailure<nxKestrumLimit>);
    static_assert(MovesWithoutFailure<nxKestrumDefinitionList> && MovesWithoutFailure<Spec>);

    std::unique_ptr<Definition> Make(const std::string& name, unsigned int type = Type::Text) {
        return std::make_unique<Definition>(name, type, true);
    }

    // The last definition of that name, found the plain way.
    Definition* Last(const Definitions& definitions, const std::string& name) {
        const auto isIt = [&name](const auto& item) { return item && item->GetName() == name; };
        const auto last = std::find_if(definitions.rbegin(), definitions.rend(), isIt);
        return last != definitions.rend() ? last->get() : nullptr;
    }

    // Two specs, and what a caller has of them.
    struct Caller {
        explicit Caller(unsigned int seed) : random(seed) {
            for (int i = 0; i < 8; ++i)
                list.push_back(New());
        }

        // Few, so that they repeat, of several lengths.
        static constexpr unsigned int NameCount = 9;
        static std::string Name(unsigned int i) {
            return std::string(i % 3 * 12 + 1, static_cast<char>('a' + i));
        }
        std::string Name() { return Name(random.Below(NameCount)); }
        std::unique_ptr<Definition> New() { return Make(Name(), random.Flag() ? Type::Text : Type::Account); }
        std::string NewFields() {
            return Element("Name", Name()) + Elements("ParameterType=TEXT Optional=0");
        }

        // A place in a list, which may hold null, and a definition in it.
        std::unique_ptr<Definition>& Place(Definitions& in) {
            if (in.empty())
                in.push_back(New());
            return in[random.Below(static_cast<unsigned int>(in.size()))];
        }
        std::unique_ptr<Definition>& Place() { return Place(list); }
        Definition& Item() {
            auto& place = Place();
            if (!place)
                place = New();
            return *place;
        }

        void ExpectFound(const std::string& name) const {
            for (const Spec* const each : {&spec, &other}) {
                const Definition* const last = Last(each->GetScriptParameterDefinitions(), name);
                EXPECT_EQ(each->GetScriptParameterDefinition(name), last) << name;
                std::vector<nxKestrumParameter*> parameters;
                each->ExtractParametersFromUserString(name + "=x\x01", parameters);
                EXPECT_EQ(parameters.size(), last ? 1U : 0U) << name;
                for (const nxKestrumParameter* const parameter : parameters) {
                    EXPECT_TRUE(last && parameter->GetParameterType() == last->GetParameterType()) << name;
                    delete parameter;
                }
            }
        }
        void ExpectAllFound() const {
            for (unsigned int i = 0; i < NameCount; ++i)
                ExpectFound(Name(i));
        }

        const nxCollectedLog quiet{nxLogLevelEnum::Fatal};
        nxRandomText random;
        Spec spec;
        Spec other;
        Definitions& list = spec.GetScriptParameterDefinitions(); // taken once and kept
        Definitions& otherList = other.GetScriptParameterDefinitions();
        Definitions taken; // moved out of a list, and alive
    };

    struct Change {
        const char* name;
        void (*make)(Caller&);
    };
    const Change Changes[] = {
        // The list.
        {"insert",
         [](Caller& c) {
             c.list.insert(c.list.begin() + c.random.Below(static_cast<unsigned int>(c.list.size()) + 1),
                           c.New());
         }},
        {"erase",
         [](Caller& c) {
             const auto* const place = &c.Place();
             c.list.erase(c.list.begin() + (place - c.list.data()));
         }},
        {"shorten", [](Caller& c) { c.list.resize(c.list.size() / 2); }},
        {"clear the list", [](Caller& c) { c.list.clear(); }},
        {"replace", [](Caller& c) { c.Place() = c.New(); }},
        {"replace by what is made in the freed place",
         [](Caller& c) {
             auto& place = c.Place();
             place.reset();
             place = c.New();
         }},
        {"pop and push",
         [](Caller& c) {
             c.Place();
             c.list.pop_back();
             c.list.push_back(c.New());
         }},
        {"put null", [](Caller& c) { c.Place().reset(); }},
        {"swap two", [](Caller& c) { c.Place().swap(c.Place()); }},
        {"reverse", [](Caller& c) { std::ranges::reverse(c.list); }},
        {"sort",
         [](Caller& c) {
             std::ranges::sort(c.list, {}, [](const auto& item) { return item ? item->GetName() : ""; });
         }},
        {"swap the lists", [](Caller& c) { c.list.swap(c.otherList); }},
        {"swap between lists", [](Caller& c) { c.Place().swap(c.Place(c.otherList)); }},
        {"rename in the other list, and back",
         [](Caller& c) {
             c.Item();
             auto& from = c.Place();
             auto& to = c.Place(c.otherList);
             from.swap(to);
             c.other.GetScriptParameterDefinition(c.Name());
             if (to)
                 to->SetName(c.Name());
             from.swap(to);
         }},
        {"take out", [](Caller& c) { c.taken.push_back(std::move(c.Place())); }},
        {"take out and replace", [](Caller& c) { c.taken.push_back(std::exchange(c.Place(), c.New())); }},
        {"take out, rename and put back",
         [](Caller& c) {
             auto& place = c.Place();
             auto item = std::move(place);
             if (item)
                 item->SetName(c.Name());
             place = std::move(item);
         }},
        {"put back",
         [](Caller& c) {
             if (!c.taken.empty())
                 c.Place().swap(c.taken.back());
         }},
        {"destroy what was taken", [](Caller& c) { c.taken.clear(); }},
        // A definition.
        {"rename", [](Caller& c) { c.Item().SetName(c.Name()); }},
        {"rename what was found",
         [](Caller& c) {
             if (Definition* const found = c.spec.GetScriptParameterDefinition(c.Name()))
                 found->SetName(c.Name());
         }},
        {"assign to an item", [](Caller& c) { c.Item() = Definition(*c.New()); }},
        {"assign an item",
         [](Caller& c) {
             const Definition& item = c.Item();
             c.Item() = item;
         }},
        {"move an item to a new definition", [](Caller& c) { const Definition moved(std::move(c.Item())); }},
        {"move an item to one that is there",
         [](Caller& c) {
             Definition moved;
             moved = std::move(c.Item());
         }},
        {"read an item", [](Caller& c) { ReadItem(c.Item(), c.NewFields()); }},
        // A spec.
        {"add",
         [](Caller& c) {
             const auto item = c.New();
             const bool isNew = !Last(c.list, item->GetName());
             EXPECT_EQ(c.spec.AddScriptParameterDefinition(*item), isNew);
         }},
        {"read",
         [](Caller& c) {
             Read(c.spec, Element("x", Element("Parameters", Element("Parameter", c.NewFields()))));
         }},
        {"set", [](Caller& c) { c.spec.SetScriptParameterDefinitions(c.otherList); }},
        {"set its own", [](Caller& c) { c.spec.SetScriptParameterDefinitions(c.list); }},
        {"clear", [](Caller& c) { c.spec.ClearScriptParameterDefinitions(); }},
        {"assign",
         [](Caller& c) {
             c.spec = c.other;
             EXPECT_TRUE(c.spec == c.other);
         }},
        {"move", [](Caller& c) { c.spec = std::move(c.other); }},
        {"swap", [](Caller& c) { std::swap(c.spec, c.other); }},
    };
} // namespace

TEST(nxKestrumDefinitionLookUp, IsRightAfterEachChange) {
    for (const auto& [name, make] : Changes) {
        for (unsigned int seed = 0; seed < 30; ++seed) {
            SCOPED_TRACE(name);
            Caller caller(seed);
            caller.ExpectAllFound();
            make(caller);
            caller.ExpectAllFound();
            ASSERT_FALSE(testing::Test::HasFailure());
        }
    }
}

TEST(nxKestrumDefinitionLookUp, IsRightAfterAnyChanges) {
    for (unsigned int seed = 0; seed < 100; ++seed) {
        Caller caller(seed);
        std::string walk;
        for (int step = 0; step < 200; ++step) {
            const Change& change = Changes[caller.random.Below(std::size(Changes))];
            walk += std::string("\n") + change.name;
            SCOPED_TRACE(walk);
            if (caller.random.Flag())
                caller.list.push_back(caller.New()); // a long list, mostly
            change.make(caller);
            if (caller.random.Flag())
                caller.ExpectFound(caller.Name());
            if (step % 20 == 0)
                caller.ExpectAllFound();
            ASSERT_FALSE(testing::Test::HasFailure());
        }
    }
}

// Most of use under the thread sanitizer.
TEST(nxKestrumDefinitionLookUp, MayComeFromManyThreadsAtOnce) {
    Spec spec;
    Definitions& list = spec.GetScriptParameterDefinitions();
    for (unsigned int i = 0; i < 50; ++i)
        list.push_back(Make(std::to_string(i)));
    for (std::size_t round = 0; round < 50; ++round) {
        std::unique_ptr<Definition> taken = std::exchange(list[round], Make("new"));
        nxInThreads(4, 1, [&](int thread, int) {
            if (thread == 0)
                taken.reset();
            for (unsigned int i = 0; i < 50; ++i)
                EXPECT_EQ(spec.GetScriptParameterDefinition(std::to_string(i)),
                          i <= round ? nullptr : list[i].get());
            EXPECT_EQ(spec.GetScriptParameterDefinition("new"), list[round].get());
        });
    }
}

TEST(nxKestrumDefinitionLookUp, GoesOnInAChildForkedWhileAThreadMadeTheIndex) {
    if (nxIsSanitized)
        GTEST_SKIP() << "the sanitizer's malloc may be locked in the child";
    constexpr int Count = 20'000; // the index takes some milliseconds
    Spec spec;
    Definitions& list = spec.GetScriptParameterDefinitions();
    for (int i = 0; i < Count; ++i)
        list.push_back(Make(std::to_string(i)));
    for (std::size_t fork = 0; fork < 10; ++fork) {
        list[fork] = Make("new");
        std::latch start(2);
        const std::jthread thread([&] {
            start.arrive_and_wait();
            EXPECT_EQ(spec.GetScriptParameterDefinition("new"), list[fork].get());
        });
        start.arrive_and_wait();
        std::this_thread::sleep_for(std::chrono::microseconds(200));
        const pid_t child = ::fork();
        if (child == 0) {
            alarm(60);
            const bool isFound = spec.GetScriptParameterDefinition("new") == list[fork].get() &&
                                 !spec.GetScriptParameterDefinition("none");
            _exit(isFound ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0) << "signal " << SIGALRM << ": hangs";
    }
}

TEST(nxKestrumDefinitionLookUp, IsQuickerThanASearchOfALongList) {
    constexpr int Count = 2'000;
    Spec spec;
    Definitions& list = spec.GetScriptParameterDefinitions();
    const double adding = nxMilliseconds([&] {
        list.clear();
        for (int i = 0; i < Count; ++i)
            EXPECT_TRUE(spec.AddScriptParameterDefinition(*Make(std::to_string(i))));
    });
    const double lookingUp = nxMilliseconds([&] {
        for (int i = 0; i < Count; ++i)
            EXPECT_TRUE(spec.GetScriptParameterDefinition(std::to_string(i)));
    });
    const double searching = nxMilliseconds([&] {
        for (int i = 0; i < Count; ++i)
            EXPECT_TRUE(Last(list, std::to_string(i)));
    });
    std::printf("%d definitions: add %.2f ms, look up %.2f ms, search %.2f ms\n", Count, adding, lookingUp,
                searching);
    EXPECT_LT(lookingUp, searching);
    EXPECT_LT(adding, searching);
}

TEST(nxKestrumAlgorithmSpecNullPointers, ArePassedOver) {
    Spec spec;
    Definitions& list = spec.GetScriptParameterDefinitions();
    list.push_back(nullptr);
    list.push_back(std::make_unique<Definition>("a", Type::Text, false));
    list.push_back(nullptr);
    std::string error;
    EXPECT_FALSE(spec.ValidateParameters({nullptr}, error));
    EXPECT_EQ(error, "Mandatory parameter: a is not set");
    EXPECT_TRUE(spec.AddScriptParameterDefinition(*Make("b")));

    const Spec copy(spec);
    EXPECT_TRUE(copy == spec);
    EXPECT_EQ(copy.GetScriptParameterDefinitions().size(), 4U);
    list.erase(list.begin());
    EXPECT_FALSE(copy == spec);

    spec.SetScriptOutputParameterDefinitions(list);
    EXPECT_EQ(spec.GetScriptOutputParameterDefinitions().size(), 2U);
    Spec::Limits limits(2);
    limits[1] = std::make_unique<nxKestrumLimit>();
    spec.SetLimits(limits);
    spec.SetLimits(spec.GetLimits());
    EXPECT_EQ(spec.GetLimits().size(), 1U);
}

namespace {
    // Each change makes another value.
    template <class Record>
    void ExpectEachMatters(const std::vector<std::function<void(Record&)>>& changes) {
        Record previous;
        for (std::size_t i = 0; i < changes.size(); ++i) {
            Record changed = previous;
            EXPECT_TRUE(changed == previous) << i;
            changes[i](changed);
            EXPECT_FALSE(changed == previous) << i;
            previous = std::move(changed);
        }
    }
} // namespace

TEST(nxKestrumAlgorithmSpecEquality, TakesEveryFieldOfEveryItem) {
    ExpectEachMatters<Spec>({
        [](Spec& spec) { spec.SetScriptSourceCode("x"); },
        [](Spec& spec) { spec.SetSyntheticOrderType(nxSyntheticOrderTypeEnum::Iceberg); },
        [](Spec& spec) { spec.SetHideParentOrder(true); },
        [](Spec& spec) { spec.AddModule("x"); },
        [](Spec& spec) { spec.AddScriptOutputParameterDefinition(*Make("x")); },
        [](Spec& spec) { spec.GetScriptOutputParameterDefinitions()[0]->SetReadOnly(false); },
        [](Spec& spec) { spec.AddScriptParameterDefinition(*Make("x")); },
        [](Spec& spec) { spec.GetScriptParameterDefinition("x")->SetName("y"); },
        [](Spec& spec) { spec.GetScriptParameterDefinition("y")->SetParameterType(Type::Price); },
        [](Spec& spec) { spec.GetScriptParameterDefinition("y")->SetOptional(false); },
        [](Spec& spec) { spec.GetScriptParameterDefinition("y")->SetDescription("x"); },
        [](Spec& spec) { spec.GetScriptParameterDefinition("y")->SetValidValues({"x"}); },
        [](Spec& spec) { spec.GetScriptParameterDefinitions().push_back(nullptr); },
        [](Spec& spec) { std::ranges::reverse(spec.GetScriptParameterDefinitions()); },
        [](Spec& spec) { spec.AddLimit({}); },
        [](Spec& spec) { spec.GetLimits()[0]->SetMaxBuys(1); },
        [](Spec& spec) { spec.GetLimits()[0]->SetAllowNetting(true); },
        [](Spec& spec) { spec.GetLimits()[0]->SetAccountID(1U); },
    });
}
