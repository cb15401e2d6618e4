// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The first algorithm specs of a process, made by two threads at once: most of use under the thread
// sanitizer. A program of its own, so that no other test was there before.

#include "tests/support/nxPrint.h"
#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"

#include <gtest/gtest.h>

#include <barrier>
#include <memory>
#include <thread>
#include <vector>

TEST(nxKestrumAlgorithmSpecFirstUse, MayHappenInTwoThreadsAtOnce) {
    std::barrier start(2);
    const auto use = [&start] {
        start.arrive_and_wait();
        const nxKestrumAlgorithmSpec spec;
        std::vector<nxKestrumParameter*> parameters;
        EXPECT_EQ(spec.ExtractParametersFromUserString("$classroomNumber=7\x01", parameters),
                  nxErrorEnum::OK);
        ASSERT_EQ(parameters.size(), 1U);
        EXPECT_TRUE(std::unique_ptr<nxKestrumParameter>(parameters[0])->GetIsSystemParameter());
    };
    std::thread first(use);
    std::thread second(use);
    first.join();
    second.join();
}
