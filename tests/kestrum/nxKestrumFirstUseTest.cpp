// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The first use of the engine's own parameters in a process, by two threads at once: most of use under the
// thread sanitizer. A program of its own, so that no other test was there before. And the last use.

#include "tests/support/nxPrint.h"
#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"

#include <gtest/gtest.h>

#include <barrier>
#include <cstdlib>
#include <memory>
#include <thread>
#include <vector>

namespace {
    bool FindsSystemParameter() {
        std::vector<nxKestrumParameter*> parameters;
        const nxErrorEnum result =
            nxKestrumAlgorithmSpec().ExtractParametersFromUserString("$classroomNumber=7\x01", parameters);
        const std::vector<std::unique_ptr<nxKestrumParameter>> owned(parameters.begin(), parameters.end());
        return result.IsOK() && owned.size() == 1 && owned[0]->GetIsSystemParameter();
    }

    // Destroyed behind whatever the program makes after its start.
    struct LastUse {
        ~LastUse() {
            if (isWanted && !FindsSystemParameter())
                std::_Exit(1);
        }
        bool isWanted = false;
    } lastUse;
} // namespace

TEST(nxKestrumAlgorithmSpecFirstUse, MayHappenInTwoThreadsAtOnce) {
    std::barrier start(2);
    const auto use = [&start] {
        start.arrive_and_wait();
        EXPECT_TRUE(FindsSystemParameter());
    };
    std::thread first(use);
    std::thread second(use);
    first.join();
    second.join();
}

TEST(nxKestrumAlgorithmSpecLastUse, MayHappenWhileTheProgramEnds) {
    const auto useAndExit = [] {
        lastUse.isWanted = true;
        std::exit(FindsSystemParameter() ? 0 : 2); // NOLINT(concurrency-mt-unsafe)
    };
    EXPECT_EXIT(useAndExit(), testing::ExitedWithCode(0), "^$");
}
